import QtQuick
import Pitchlark.DesignSystem

// A round glass button holding one symbol.
Pressable {
    id: button

    property string symbol

    implicitWidth: 30
    implicitHeight: 30

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: Qt.rgba(1, 1, 1, button.pressed ? 0.75 : button.hovered ? 0.6 : 0.38)
        border.color: Theme.cardStrokeTop
        border.width: 1
        Behavior on color { ColorAnimation { duration: 120 } }
    }
    Text {
        anchors.centerIn: parent
        text: button.symbol
        textFormat: Text.PlainText
        font.pixelSize: 15
        font.weight: Font.DemiBold
        color: Theme.secondary
    }
}
