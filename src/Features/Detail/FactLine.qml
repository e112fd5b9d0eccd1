import QtQuick
import Pitchlark.DesignSystem

// One fact on a record card: what it is on the left, its value on the right; takes no room when the
// value is empty.
Item {
    id: fact

    property string label
    property string value

    visible: value.length > 0
    implicitHeight: visible ? Math.max(labelText.implicitHeight, valueText.implicitHeight) + 10 : 0
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    Text {
        id: labelText
        anchors { left: parent.left; verticalCenter: parent.verticalCenter }
        text: fact.label
        textFormat: Text.PlainText
        font.pixelSize: 12
        color: Theme.tertiary
    }
    Text {
        id: valueText
        anchors { left: labelText.right; leftMargin: 12; right: parent.right; verticalCenter: parent.verticalCenter }
        horizontalAlignment: Text.AlignRight
        text: fact.value
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: 13
        font.weight: Font.DemiBold
        color: Theme.primary
    }
}
