import QtQuick
import Pitchlark.DesignSystem

// A slider on glass: a thin track filled with the accent colour up to a white knob.
ValueTrack {
    id: slider

    readonly property int trackHeight: 4
    readonly property int knobSize: 18

    Rectangle {
        id: groove
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: slider.trackHeight
        radius: height / 2
        color: Qt.rgba(0, 0, 0, 0.12)
        Rectangle {
            width: slider.position * parent.width
            height: parent.height
            radius: parent.radius
            color: Theme.accent
        }
    }
    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        x: slider.position * (slider.width - width)
        width: slider.knobSize
        height: width
        radius: width / 2
        color: "white"
        border.color: Qt.rgba(0, 0, 0, 0.1)
        scale: slider.pressed ? 1.1 : 1
        Behavior on scale { NumberAnimation { duration: 90 } }
    }
}
