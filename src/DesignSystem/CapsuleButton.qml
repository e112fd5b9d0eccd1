import QtQuick
import Pitchlark.DesignSystem

// A text button on an accent-tinted capsule, for the one action a card offers.
Pressable {
    id: button

    property string text
    property string symbol
    readonly property int sidePadding: 14
    readonly property int endPadding: 7

    implicitWidth: label.implicitWidth + 2 * sidePadding
    implicitHeight: label.implicitHeight + 2 * endPadding
    accessibleName: text

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b,
                       button.pressed ? 0.26 : button.hovered ? 0.19 : 0.13)
        Behavior on color { ColorAnimation { duration: 120 } }
    }
    Text {
        id: label
        anchors.centerIn: parent
        text: (button.symbol.length > 0 ? button.symbol + "  " : "") + button.text
        textFormat: Text.PlainText
        font.pixelSize: 12
        font.weight: Font.DemiBold
        color: Theme.accent
    }
}
