import QtQuick
import Pitchlark.DesignSystem

// A setting with a value along a range: its name and the value in percent, with a slider below.
Column {
    id: row

    property string title
    property real value
    property real from: 0
    property real to: 1
    // The slider's object name, for whoever needs to find it.
    property string controlName
    signal moved(real value)
    // The drag is over: the value the slider rests at.
    signal settled()

    spacing: 4

    Item {
        width: parent.width
        height: name.implicitHeight
        Text {
            id: name
            text: row.title
            textFormat: Text.PlainText
            font.pixelSize: 13
            font.weight: Font.Medium
            color: Theme.primary
        }
        Text {
            anchors { right: parent.right; baseline: name.baseline }
            text: Math.round(row.value * 100) + "%"
            textFormat: Text.PlainText
            font.pixelSize: 11
            color: Theme.tertiary
        }
    }
    GlassSlider {
        objectName: row.controlName
        width: parent.width
        accessibleName: row.title
        value: row.value
        from: row.from
        to: row.to
        onMoved: value => row.moved(value)
        onPressedChanged: if (!pressed) row.settled()
    }
}
