import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The followed teams, each with its star to unfollow it, then their matches: running ones, those to
// come, and results. With nobody followed, what following does and where to start.
Item {
    id: screen

    required property QtObject model
    readonly property var teams: model.favoriteTeams
    // Recomputed whenever the followed teams or the matches change.
    readonly property var matches: { model.favoriteTeams; model.allMatches; return model.favoriteMatches(); }
    readonly property var live: matches.filter(match => match.isLive)
    readonly property var coming: matches.filter(match => match.status !== "finished" && !match.isLive)
    readonly property var results: matches.filter(match => match.status === "finished")

    FadingScrollView {
        anchors { fill: parent; leftMargin: Theme.gutter; rightMargin: Theme.gutter }

        Column {
            width: parent.width
            spacing: Theme.rowSpacing

            SectionHeading {
                width: parent.width
                visible: screen.teams.length > 0
                title: "Following"
                note: screen.teams.length === 1 ? "1 team" : screen.teams.length + " teams"
            }
            GlassCard {
                id: followed
                objectName: "favoriteTeams"
                width: parent.width
                visible: screen.teams.length > 0
                surfaceOpacity: screen.model.surfaceOpacity
                padding: 6
                transform: AppearAnimation { target: followed }

                Column {
                    width: parent.width
                    Repeater {
                        model: screen.teams
                        delegate: TeamRow {
                            required property var modelData
                            required property int index
                            width: parent.width
                            model: screen.model
                            teamID: modelData.id
                            name: modelData.name
                            code: modelData.code
                            flagURL: modelData.flagURL
                            flagEmoji: modelData.flagEmoji
                            divided: index > 0
                        }
                    }
                }
            }
            MatchList {
                objectName: "favoriteLive"
                width: parent.width
                model: screen.model
                title: "Live now"
                matches: screen.live
            }
            MatchList {
                objectName: "favoriteComing"
                width: parent.width
                model: screen.model
                title: "Coming up"
                matches: screen.coming
            }
            MatchList {
                objectName: "favoriteResults"
                width: parent.width
                model: screen.model
                title: "Results"
                matches: screen.results
            }
            CapsuleButton {
                objectName: "addFavoritesToCalendar"
                anchors.horizontalCenter: parent.horizontalCenter
                visible: screen.matches.length > 0
                symbol: "📅"
                text: "Add to calendar"
                accessibleName: "Add the matches of the teams you follow to your calendar"
                onClicked: screen.model.addFavoritesToCalendar()
            }
            EmptyState {
                objectName: "favoritesEmpty"
                width: parent.width
                visible: screen.teams.length === 0
                symbol: "☆"
                title: "Follow the teams you care about"
                message: "Tap the star next to a team to follow it. You'll get alerts for its kick-offs, "
                         + "goals and full time, and its matches gather here."
            }
            CapsuleButton {
                objectName: "browseTeams"
                anchors.horizontalCenter: parent.horizontalCenter
                visible: screen.teams.length === 0
                text: "Browse teams"
                onClicked: screen.model.section = "teams"
            }
        }
    }
}
