import QtQuick
import Pitchlark.DesignSystem

// An on/off switch: a capsule that fills with the accent colour while on, with a sliding knob.
Pressable {
    id: toggle

    property bool checked
    // The user flipped it; the owner stores the new state, which comes back through checked.
    signal toggled(bool checked)

    readonly property int trackWidth: 38
    readonly property int trackHeight: 22
    readonly property int knobInset: 2

    implicitWidth: trackWidth
    implicitHeight: trackHeight
    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: checked
    onClicked: toggled(!checked)

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: toggle.checked ? Theme.accent : Qt.rgba(0, 0, 0, toggle.hovered ? 0.16 : 0.12)
        opacity: toggle.enabled ? 1 : 0.45
        Behavior on color { ColorAnimation { duration: 160 } }
    }
    Rectangle {
        width: toggle.trackHeight - 2 * toggle.knobInset
        height: width
        radius: width / 2
        y: toggle.knobInset
        x: toggle.checked ? toggle.width - width - toggle.knobInset : toggle.knobInset
        color: "white"
        border.color: Qt.rgba(0, 0, 0, 0.06)
        Behavior on x { NumberAnimation { duration: 160; easing.type: Easing.OutCubic } }
    }
}
