import QtQuick
import Pitchlark.DesignSystem

// A fact about the program: its name on the left, its value on the right.
Item {
    id: row

    property string title
    property string value

    implicitHeight: Math.max(name.implicitHeight, shown.implicitHeight)
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ": " + value

    Text {
        id: name
        anchors.left: parent.left
        text: row.title
        textFormat: Text.PlainText
        font.pixelSize: 13
        font.weight: Font.Medium
        color: Theme.primary
    }
    Text {
        id: shown
        objectName: "value"
        anchors { left: name.right; leftMargin: 12; right: parent.right; baseline: name.baseline }
        horizontalAlignment: Text.AlignRight
        text: row.value
        textFormat: Text.PlainText
        elide: Text.ElideMiddle
        font.pixelSize: 12
        color: Theme.secondary
    }
}
