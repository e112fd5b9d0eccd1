import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// One team's line in a group table. A coloured bar marks the places that go through; the rows of
// followed teams are tinted, and the row of the team a page is about more strongly. A concealed row shows
// the team alone. A click opens the team.
Pressable {
    id: row

    required property AppModel model
    required property var standing
    property bool highlighted
    property bool concealed
    readonly property bool followed: model.favoriteTeamIDs.indexOf(standing.teamID) >= 0
    readonly property color placeColor: concealed ? "transparent" : standing.position <= 2 ? Theme.qualGreen
                                        : standing.position === 3 ? Theme.playoffAmber : "transparent"
    readonly property int barWidth: 3

    objectName: "standing-" + standing.teamID
    implicitHeight: 34
    focusRadius: 10
    accessibleName: concealed ? standing.team + ". Open team"
                              : standing.team + ", place " + standing.position + ", " + standing.points + " points. Open team"
    onClicked: model.navigation.openTeam(standing.teamID)

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: row.highlighted ? Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b, 0.18)
               : row.followed ? Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b, 0.1)
               : Qt.rgba(Theme.primary.r, Theme.primary.g, Theme.primary.b, row.hovered ? 0.05 : 0)
    }
    Rectangle {
        anchors { left: parent.left; verticalCenter: parent.verticalCenter }
        width: row.barWidth
        height: parent.height - 12
        radius: width / 2
        color: row.placeColor
    }
    TableColumns {
        anchors.fill: parent
        position: row.concealed ? "" : String(row.standing.position)
        positionColor: row.standing.position <= 3 ? row.placeColor : Theme.tertiary
        FlagView {
            anchors.centerIn: parent
            source: row.standing.flagURL
            emoji: row.standing.flagEmoji
            code: row.standing.code
        }
        team: row.standing.team
        teamBold: row.followed || row.highlighted
        figures: row.concealed ? [] : [row.standing.played, row.standing.won, row.standing.drawn, row.standing.lost,
                  row.standing.goalsFor, row.standing.goalsAgainst,
                  (row.standing.goalDifference > 0 ? "+" : "") + row.standing.goalDifference]
        points: row.concealed ? "" : String(row.standing.points)
    }
}
