import QtQuick
import Pitchlark.DesignSystem

// How many matches are running, on a red capsule with a pulsing dot.
Rectangle {
    id: pill

    property int count

    implicitWidth: content.implicitWidth + 18
    implicitHeight: content.implicitHeight + 10
    radius: height / 2
    color: Theme.liveRed

    Row {
        id: content
        anchors.centerIn: parent
        spacing: 5
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 6
            height: 6
            radius: 3
            color: "white"
            SequentialAnimation on opacity {
                loops: Animation.Infinite
                NumberAnimation { from: 1; to: 0.5; duration: 850; easing.type: Easing.InOutQuad }
                NumberAnimation { from: 0.5; to: 1; duration: 850; easing.type: Easing.InOutQuad }
            }
        }
        Text {
            text: pill.count + " LIVE"
            textFormat: Text.PlainText
            color: "white"
            font.pixelSize: 11
            font.weight: Font.Bold
            font.letterSpacing: 0.6
        }
    }
}
