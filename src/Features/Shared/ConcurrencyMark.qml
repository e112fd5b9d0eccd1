import QtQuick
import Pitchlark.DesignSystem

// Says that a match kicks off together with another one, so the two are followed side by side.
Rectangle {
    readonly property int sidePadding: 7
    readonly property int endPadding: 3

    implicitWidth: label.implicitWidth + 2 * sidePadding
    implicitHeight: label.implicitHeight + 2 * endPadding
    radius: height / 2
    color: Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b, 0.1)
    Accessible.role: Accessible.StaticText
    Accessible.name: "Kicks off at the same time as another match"

    Text {
        id: label
        anchors.centerIn: parent
        text: "⇄ Same time"
        textFormat: Text.PlainText
        font.pixelSize: 10
        font.weight: Font.DemiBold
        color: Theme.accent
    }
}
