import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// A team's own page: who it is and how its group stands, its next match and latest result, the whole
// group table with its row picked out, and every match it plays. An id the feed does not know and no
// match names gets a clear note instead.
Column {
    id: detail

    required property AppModel model
    required property string teamID
    readonly property TeamLookup lookup: TeamLookup { model: detail.model; key: detail.teamID }
    readonly property bool found: lookup.found
    readonly property var team: lookup.team
    readonly property var standing: team.standing
    readonly property int statSpacing: 8

    // "1st", "2nd", "3rd", "4th": places in a group of four.
    function ordinal(place) {
        return place + (["th", "st", "nd", "rd"][place] ?? "th");
    }

    spacing: Theme.rowSpacing

    EmptyState {
        objectName: "teamNotFound"
        width: parent.width
        visible: !detail.found
        symbol: "🔎"
        title: detail.model.isLoading ? "Loading the team…" : "Team not found"
        message: detail.model.isLoading ? "" : "This team is not in the tournament."
    }
    GlassCard {
        id: hero
        objectName: "teamHero"
        width: parent.width
        visible: detail.found
        surfaceOpacity: detail.model.glass.surfaceOpacity
        transform: AppearAnimation { target: hero }

        Column {
            width: parent.width
            spacing: 14
            Item {
                width: parent.width
                height: Math.max(flag.height, identity.implicitHeight)
                FlagView {
                    id: flag
                    anchors { left: parent.left; verticalCenter: parent.verticalCenter }
                    width: 56
                    height: 40
                    source: detail.team.summary.flagURL
                    emoji: detail.team.summary.flagEmoji
                    code: detail.team.summary.code
                }
                Column {
                    id: identity
                    anchors { left: flag.right; leftMargin: 14; right: star.left; rightMargin: 6 }
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: 2
                    Text {
                        objectName: "teamName"
                        width: parent.width
                        text: detail.team.summary.name
                        textFormat: Text.PlainText
                        elide: Text.ElideRight
                        font.pixelSize: 20
                        font.weight: Font.Bold
                        color: Theme.primary
                    }
                    Text {
                        width: parent.width
                        visible: text.length > 0
                        text: [detail.team.summary.code, detail.team.group ? "Group " + detail.team.group : ""]
                              .filter(part => part.length > 0).join("  ·  ")
                        textFormat: Text.PlainText
                        font.pixelSize: 12
                        font.weight: Font.Medium
                        font.letterSpacing: 0.3
                        color: Theme.tertiary
                    }
                }
                FollowStar {
                    id: star
                    objectName: "followStar-" + detail.teamID
                    anchors { right: parent.right; rightMargin: -6; verticalCenter: parent.verticalCenter }
                    model: detail.model
                    teamID: detail.teamID
                    teamName: detail.team.summary.name
                }
            }
            Row {
                id: stats
                objectName: "teamStats"
                width: parent.width
                // Place, points and goal difference tell results.
                visible: !!detail.standing && !detail.model.hideScores
                spacing: detail.statSpacing
                readonly property real tileWidth: (width - 3 * spacing) / 4
                StatTile {
                    width: stats.tileWidth
                    label: "Place"
                    value: detail.standing ? detail.ordinal(detail.standing.position) : ""
                }
                StatTile {
                    width: stats.tileWidth
                    label: "Points"
                    value: detail.standing ? String(detail.standing.points) : ""
                }
                StatTile {
                    width: stats.tileWidth
                    label: "Played"
                    value: detail.standing ? String(detail.standing.played) : ""
                }
                StatTile {
                    width: stats.tileWidth
                    label: "Goal diff"
                    value: !detail.standing ? "" : (detail.standing.goalDifference > 0 ? "+" : "")
                                                   + detail.standing.goalDifference
                }
            }
            CapsuleButton {
                objectName: "showFixtures"
                anchors.horizontalCenter: parent.horizontalCenter
                visible: detail.team.matches.length > 0
                symbol: "📅"
                text: "Show fixtures"
                accessibleName: "Show the fixtures of " + detail.team.summary.name
                onClicked: detail.model.showTeamFixtures(detail.teamID)
            }
            CapsuleButton {
                objectName: "addTeamToCalendar"
                anchors.horizontalCenter: parent.horizontalCenter
                visible: detail.team.matches.length > 0
                symbol: "📅"
                text: "Add to calendar"
                accessibleName: "Add the matches of " + detail.team.summary.name + " to your calendar"
                onClicked: detail.model.addTeamToCalendar(detail.teamID)
            }
        }
    }
    MatchList {
        objectName: "nextMatch"
        width: parent.width
        model: detail.model
        title: detail.team.nextMatch && detail.team.nextMatch.isLive ? "Playing now" : "Next match"
        counted: false
        rows: MatchListModel { matches: detail.team.nextMatch ? [detail.team.nextMatch] : [] }
    }
    MatchList {
        objectName: "latestResult"
        width: parent.width
        model: detail.model
        title: "Latest result"
        counted: false
        rows: MatchListModel { matches: detail.team.latestResult ? [detail.team.latestResult] : [] }
    }
    Column {
        width: parent.width
        visible: !!detail.team.groupStanding
        spacing: Theme.rowSpacing
        SectionHeading {
            width: parent.width
            title: "Group table"
        }
        GroupTable {
            objectName: "teamGroupTable"
            width: parent.width
            model: detail.model
            group: detail.team.groupStanding?.group ?? ""
            rows: StandingListModel {
                standings: detail.team.groupStanding?.standings ?? []
                nameOrder: detail.model.hideScores
            }
            highlightedTeamID: detail.teamID
        }
        QualificationLegend {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: !detail.model.hideScores
        }
    }
    MatchList {
        objectName: "teamMatches"
        width: parent.width
        model: detail.model
        title: "All matches"
        rows: MatchListModel { matches: detail.team.matches }
    }
}
