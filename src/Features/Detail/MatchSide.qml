import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// One team at the top of the match page: a large flag and the name, which open the team, and the
// follow star under them.
Column {
    id: side

    required property AppModel model
    property string teamID
    property string name
    property string code
    property string emoji
    property url flagURL
    readonly property int flagWidth: 52
    readonly property int flagHeight: 37

    spacing: 4

    Pressable {
        objectName: "side-" + side.teamID
        width: side.width
        height: teamColumn.implicitHeight
        focusRadius: 12
        enabled: side.teamID.length > 0
        accessibleName: "Open " + side.name
        onClicked: side.model.navigation.openTeam(side.teamID)
        Column {
            id: teamColumn
            width: parent.width
            spacing: 8
            FlagView {
                anchors.horizontalCenter: parent.horizontalCenter
                width: side.flagWidth
                height: side.flagHeight
                source: side.flagURL
                emoji: side.emoji
                code: side.code
            }
            Text {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: side.name
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                maximumLineCount: 2
                elide: Text.ElideRight
                font.pixelSize: 14
                font.weight: Font.DemiBold
                color: Theme.primary
            }
        }
    }
    FollowStar {
        anchors.horizontalCenter: parent.horizontalCenter
        objectName: "follow-" + side.teamID
        model: side.model
        teamID: side.teamID
        teamName: side.name
    }
}
