import QtQuick
import Pitchlark.DesignSystem

// A strip of every hue, left to right; a ring marks the chosen one. Its value is the hue, 0 to 1.
ValueTrack {
    id: strip

    readonly property int stripHeight: 12
    readonly property int markerSize: 20

    function hueColor(hue) {
        return Qt.hsva(hue % 1, 0.7, 0.95, 1);
    }

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: strip.stripHeight
        radius: height / 2
        border.color: Theme.cardStrokeTop
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0/6; color: strip.hueColor(0/6) }
            GradientStop { position: 1/6; color: strip.hueColor(1/6) }
            GradientStop { position: 2/6; color: strip.hueColor(2/6) }
            GradientStop { position: 3/6; color: strip.hueColor(3/6) }
            GradientStop { position: 4/6; color: strip.hueColor(4/6) }
            GradientStop { position: 5/6; color: strip.hueColor(5/6) }
            GradientStop { position: 6/6; color: strip.hueColor(6/6) }
        }
    }
    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        x: strip.position * (strip.width - width)
        width: strip.markerSize
        height: width
        radius: width / 2
        color: strip.hueColor(strip.value)
        border.color: "white"
        border.width: 3
        scale: strip.pressed ? 1.1 : 1
        Behavior on scale { NumberAnimation { duration: 90 } }
    }
}
