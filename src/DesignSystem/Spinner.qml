import QtQuick
import QtQuick.Shapes
import Pitchlark.DesignSystem

// A small spinning arc for work whose length is unknown.
Item {
    id: spinner

    property color color: Theme.accent
    readonly property real lineWidth: Math.max(1.5, width / 9)
    readonly property int turnDuration: 900

    implicitWidth: 16
    implicitHeight: 16
    Accessible.role: Accessible.Animation
    Accessible.name: "Working"

    Shape {
        id: arc
        anchors.fill: parent
        layer.enabled: true
        layer.samples: 4
        ShapePath {
            strokeColor: spinner.color
            strokeWidth: spinner.lineWidth
            fillColor: "transparent"
            capStyle: ShapePath.RoundCap
            PathAngleArc {
                centerX: spinner.width / 2
                centerY: spinner.height / 2
                radiusX: (spinner.width - spinner.lineWidth) / 2
                radiusY: radiusX
                startAngle: 0
                sweepAngle: 270
            }
        }
        RotationAnimator on rotation {
            from: 0
            to: 360
            duration: spinner.turnDuration
            loops: Animation.Infinite
            running: spinner.visible && spinner.Window.visibility !== Window.Hidden
        }
    }
}
