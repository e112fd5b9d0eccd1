import QtQuick
import Pitchlark.DesignSystem

// A red capsule with a pulsing white dot: "LIVE", a running clock, or how many matches are on.
Rectangle {
    id: tag

    property string text: "LIVE"
    property int pixelSize: 11
    readonly property int sidePadding: 9
    readonly property int endPadding: 4

    implicitWidth: content.implicitWidth + 2 * sidePadding
    implicitHeight: content.implicitHeight + 2 * endPadding
    radius: height / 2
    color: Theme.liveRed

    Row {
        id: content
        anchors.centerIn: parent
        spacing: 5
        PulseDot {
            anchors.verticalCenter: parent.verticalCenter
            color: "white"
        }
        Text {
            text: tag.text
            textFormat: Text.PlainText
            color: "white"
            font.pixelSize: tag.pixelSize
            font.weight: Font.Bold
            font.letterSpacing: 0.6
        }
    }
}
