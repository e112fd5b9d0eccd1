pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem

// The columns of a group table, shared by its heading and its rows so that they line up: place, flag,
// team, seven figures (played, won, drawn, lost, for, against, difference) and points.
Item {
    id: columns

    property string position
    property color positionColor: Theme.tertiary
    // The flag cell's content; the heading leaves it empty.
    default property alias flag: flagSlot.data
    property string team
    property bool teamBold
    property var figures: []
    property string points
    property bool heading

    readonly property int positionWidth: 22
    readonly property int flagWidth: 30
    readonly property int figureWidth: 22
    readonly property int pointsWidth: 30
    readonly property int figureSize: heading ? 10 : 12

    Text {
        id: place
        anchors { left: parent.left; verticalCenter: parent.verticalCenter }
        width: columns.positionWidth
        horizontalAlignment: Text.AlignHCenter
        text: columns.position
        textFormat: Text.PlainText
        font.pixelSize: columns.figureSize
        font.weight: Font.Bold
        color: columns.positionColor
    }
    Item {
        id: flagSlot
        anchors { left: place.right; leftMargin: 2; verticalCenter: parent.verticalCenter }
        width: columns.flagWidth
        height: parent.height
    }
    Text {
        anchors { left: flagSlot.right; right: numbers.left; rightMargin: 4; verticalCenter: parent.verticalCenter }
        text: columns.team
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: columns.heading ? 10 : 13
        font.weight: columns.heading ? Font.DemiBold : columns.teamBold ? Font.Bold : Font.Medium
        font.letterSpacing: columns.heading ? 0.4 : 0
        color: columns.heading ? Theme.tertiary : Theme.primary
    }
    Row {
        id: numbers
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        Repeater {
            model: columns.figures
            delegate: Text {
                required property var modelData
                width: columns.figureWidth
                horizontalAlignment: Text.AlignHCenter
                text: String(modelData)
                textFormat: Text.PlainText
                font.pixelSize: columns.figureSize
                font.weight: columns.heading ? Font.DemiBold : Font.Normal
                color: columns.heading ? Theme.tertiary : Theme.secondary
            }
        }
        Text {
            width: columns.pointsWidth
            horizontalAlignment: Text.AlignHCenter
            text: columns.points
            textFormat: Text.PlainText
            font.pixelSize: columns.heading ? 10 : 13
            font.weight: Font.Bold
            color: columns.heading ? Theme.tertiary : Theme.primary
        }
    }
}
