pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The followed teams, each with its star to unfollow it, then their matches: running ones, those to
// come, and results. With nobody followed, what following does and where to start.
Item {
    id: screen

    required property AppModel model
    readonly property int teamCount: model.lists.favoriteTeams.count
    readonly property int matchCount: model.lists.favoriteLive.count + model.lists.favoriteComing.count
                                      + model.lists.favoriteResults.count

    FadingScrollView {
        anchors { fill: parent; leftMargin: Theme.gutter; rightMargin: Theme.gutter }

        Column {
            width: parent.width
            spacing: Theme.rowSpacing

            SectionHeading {
                width: parent.width
                visible: screen.teamCount > 0
                title: "Following"
                note: screen.teamCount === 1 ? "1 team" : screen.teamCount + " teams"
            }
            GlassCard {
                id: followed
                objectName: "favoriteTeams"
                width: parent.width
                visible: screen.teamCount > 0
                surfaceOpacity: screen.model.glass.surfaceOpacity
                padding: 6
                transform: AppearAnimation { target: followed }

                Column {
                    width: parent.width
                    Repeater {
                        model: screen.model.lists.favoriteTeams
                        delegate: TeamRow {
                            required property string key
                            required property int index
                            required code
                            required flagURL
                            required flagEmoji
                            width: parent.width
                            model: screen.model
                            teamID: key
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
                rows: screen.model.lists.favoriteLive
            }
            MatchList {
                objectName: "favoriteComing"
                width: parent.width
                model: screen.model
                title: "Coming up"
                rows: screen.model.lists.favoriteComing
            }
            MatchList {
                objectName: "favoriteResults"
                width: parent.width
                model: screen.model
                title: "Results"
                rows: screen.model.lists.favoriteResults
            }
            CapsuleButton {
                objectName: "addFavoritesToCalendar"
                anchors.horizontalCenter: parent.horizontalCenter
                visible: screen.matchCount > 0
                symbol: "📅"
                text: "Add to calendar"
                accessibleName: "Add the matches of the teams you follow to your calendar"
                onClicked: screen.model.addFavoritesToCalendar()
            }
            EmptyState {
                objectName: "favoritesEmpty"
                width: parent.width
                visible: screen.teamCount === 0
                symbol: "☆"
                title: "Follow the teams you care about"
                message: "Tap the star next to a team to follow it. You'll get alerts for its kick-offs, "
                         + "goals and full time, and its matches gather here."
            }
            CapsuleButton {
                objectName: "browseTeams"
                anchors.horizontalCenter: parent.horizontalCenter
                visible: screen.teamCount === 0
                text: "Browse teams"
                onClicked: screen.model.navigation.section = "teams"
            }
        }
    }
}
