import QtQuick
import Pitchlark.DesignSystem

// The accent ring around the control that has the keyboard focus, following its shape.
Rectangle {
    property real radiusOfTarget
    readonly property int ringWidth: 2
    readonly property int ringGap: 2

    anchors.fill: parent
    anchors.margins: -ringGap
    z: 1
    radius: radiusOfTarget + ringGap
    color: "transparent"
    border.width: ringWidth
    border.color: Theme.accent
}
