import QtQuick
import Pitchlark.DesignSystem

// A thin bar showing how far some work has got, as a fraction of 1; a negative value means the amount
// is not known yet, and a short segment sweeps along the bar instead.
Item {
    id: bar

    property real value
    readonly property bool indeterminate: value < 0
    readonly property real sweepFraction: 0.3
    readonly property int sweepDuration: 1100

    implicitHeight: 4
    clip: true
    Accessible.role: Accessible.ProgressBar
    Accessible.name: indeterminate ? "In progress" : Math.round(value * 100) + "%"

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Qt.rgba(0, 0, 0, 0.1)
    }
    Rectangle {
        id: fill
        objectName: "progressFill"
        height: parent.height
        radius: height / 2
        color: Theme.accent
        width: bar.indeterminate ? bar.width * bar.sweepFraction : bar.width * Math.min(1, bar.value)
        Behavior on width {
            enabled: !bar.indeterminate
            NumberAnimation { duration: 150 }
        }
        NumberAnimation on x {
            running: bar.indeterminate && bar.visible && bar.Window.visibility !== Window.Hidden
            from: -bar.width * bar.sweepFraction
            to: bar.width
            duration: bar.sweepDuration
            loops: Animation.Infinite
            onRunningChanged: if (!running) fill.x = 0
        }
    }
}
