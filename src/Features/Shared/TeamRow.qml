import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// One team in a list: flag, name, its code and group, the follow star and a chevron. A click opens the
// team. Rows after the first draw a hairline above themselves.
Pressable {
    id: row

    required property AppModel model
    required property string teamID
    required property string name
    property string code
    property url flagURL
    property string flagEmoji
    // The group as "Group A", or null when the team has none.
    property var groupLabel: null
    property bool divided
    // A plain array, so that looking the team up is plain JavaScript.
    readonly property var followedIDs: model.favoriteTeamIDs
    readonly property bool followed: followedIDs.indexOf(teamID) >= 0
    readonly property int flagWidth: 30
    readonly property int flagHeight: 21

    objectName: "teamRow-" + teamID
    implicitHeight: 50
    focusRadius: 12
    accessibleName: "Open " + name
    onClicked: model.navigation.openTeam(teamID)

    Rectangle {
        anchors { left: parent.left; right: parent.right; top: parent.top; leftMargin: 10; rightMargin: 10 }
        visible: row.divided
        height: 1
        color: Qt.rgba(Theme.primary.r, Theme.primary.g, Theme.primary.b, 0.07)
    }
    Rectangle {
        anchors.fill: parent
        radius: row.focusRadius
        color: Qt.rgba(Theme.primary.r, Theme.primary.g, Theme.primary.b, row.pressed ? 0.08 : row.hovered ? 0.045 : 0)
    }
    FlagView {
        id: flag
        anchors { left: parent.left; leftMargin: 10; verticalCenter: parent.verticalCenter }
        width: row.flagWidth
        height: row.flagHeight
        source: row.flagURL
        emoji: row.flagEmoji
        code: row.code
    }
    Column {
        anchors { left: flag.right; leftMargin: 12; right: star.left; rightMargin: 6 }
        anchors.verticalCenter: parent.verticalCenter
        spacing: 1
        Text {
            width: parent.width
            text: row.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: 14
            font.weight: row.followed ? Font.Bold : Font.DemiBold
            color: Theme.primary
        }
        Text {
            width: parent.width
            visible: text.length > 0
            text: row.code.length > 0 && row.groupLabel ? row.code + "  ·  " + row.groupLabel : (row.groupLabel ?? row.code)
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: 11
            font.weight: Font.Medium
            font.letterSpacing: 0.3
            color: Theme.tertiary
        }
    }
    FollowStar {
        id: star
        objectName: "followStar-" + row.teamID
        anchors { right: chevron.left; rightMargin: 4; verticalCenter: parent.verticalCenter }
        model: row.model
        teamID: row.teamID
        teamName: row.name
    }
    Text {
        id: chevron
        anchors { right: parent.right; rightMargin: 10; verticalCenter: parent.verticalCenter }
        text: "›"
        textFormat: Text.PlainText
        font.pixelSize: 18
        color: Theme.faint
    }
}
