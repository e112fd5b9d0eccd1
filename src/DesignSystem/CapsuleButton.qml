import QtQuick
import Pitchlark.DesignSystem

// A text button on a capsule. The tinted kind is the one action a card offers; a prominent one is an
// accent capsule with white text; a plain one is just its text. They shrink a little while pressed.
Pressable {
    id: button

    property string text
    property string symbol
    // "tinted", "prominent" or "plain".
    property string kind: "tinted"
    property real fontSize: 12
    property real pressedScale: 0.96
    readonly property int sidePadding: 13
    readonly property int verticalPadding: 7

    implicitWidth: label.implicitWidth + 2 * sidePadding
    implicitHeight: label.implicitHeight + 2 * verticalPadding
    accessibleName: text
    opacity: enabled ? 1 : 0.45
    scale: pressed ? pressedScale : 1
    Behavior on scale { NumberAnimation { duration: 90 } }

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: {
            switch (button.kind) {
            case "prominent":
                return button.hovered ? Qt.darker(Theme.accent, 1.08) : Theme.accent;
            case "plain":
                return Qt.rgba(Theme.primary.r, Theme.primary.g, Theme.primary.b, button.hovered ? 0.08 : 0);
            default:
                return Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b,
                               button.pressed ? 0.26 : button.hovered ? 0.19 : 0.13);
            }
        }
        Behavior on color { ColorAnimation { duration: 120 } }
    }
    Text {
        id: label
        anchors.centerIn: parent
        text: (button.symbol.length > 0 ? button.symbol + "  " : "") + button.text
        textFormat: Text.PlainText
        font.pixelSize: button.fontSize
        font.weight: Font.DemiBold
        color: button.kind === "prominent" ? "white" : button.kind === "plain" ? Theme.secondary : Theme.accent
    }
}
