import QtQuick
import Pitchlark.DesignSystem

// A text button: prominent ones are accent capsules with white text, plain ones just their text. They
// shrink a little while pressed.
Pressable {
    id: button

    property string title
    property bool prominent
    property real fontSize: 12
    property real pressedScale: 0.96
    readonly property int sidePadding: 12
    readonly property int verticalPadding: 6

    implicitWidth: label.implicitWidth + 2 * sidePadding
    implicitHeight: label.implicitHeight + 2 * verticalPadding
    accessibleName: title
    opacity: enabled ? 1 : 0.45
    scale: pressed ? pressedScale : 1
    Behavior on scale { NumberAnimation { duration: 90 } }

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: button.prominent ? Theme.accent : Theme.primary
        opacity: button.prominent ? (button.hovered ? 0.88 : 1) : (button.hovered ? 0.08 : 0)
    }
    Text {
        id: label
        anchors.centerIn: parent
        text: button.title
        textFormat: Text.PlainText
        font.pixelSize: button.fontSize
        font.weight: Font.DemiBold
        color: button.prominent ? "white" : Theme.secondary
    }
}
