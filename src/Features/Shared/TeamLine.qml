import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// One side of a match card: flag, name, follow star and score. The side that lost a finished match
// steps back to the secondary ink.
Item {
    id: line

    required property AppModel model
    property string teamID
    property string name
    property string code
    property string emoji
    property url flagURL
    property string score
    property bool muted
    property bool live

    implicitHeight: 26

    FlagView {
        id: flag
        anchors { left: parent.left; verticalCenter: parent.verticalCenter }
        source: line.flagURL
        emoji: line.emoji
        code: line.code
    }
    Text {
        id: name
        anchors { left: flag.right; leftMargin: 10; verticalCenter: parent.verticalCenter }
        width: Math.min(implicitWidth, scoreText.x - star.width - 16 - x)
        text: line.name
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: 15
        font.weight: Font.DemiBold
        color: line.muted ? Theme.secondary : Theme.primary
    }
    FollowStar {
        id: star
        objectName: "follow-" + line.teamID
        anchors { left: name.right; leftMargin: 2; verticalCenter: parent.verticalCenter }
        model: line.model
        teamID: line.teamID
        teamName: line.name
    }
    Text {
        id: scoreText
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        text: line.score
        textFormat: Text.PlainText
        font.pixelSize: 20
        font.weight: Font.Bold
        color: line.live ? Theme.liveRed : line.muted ? Theme.tertiary : Theme.primary
    }
}
