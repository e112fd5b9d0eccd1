import QtQuick
import Pitchlark.DesignSystem

// What every slider-like control shares: a value between from and to, set by pressing or dragging
// along the width, or by the arrow keys, Home and End. The look is the using component's children.
Item {
    id: track

    property real value
    property real from: 0
    property real to: 1
    property real stepSize: 0.05
    property string accessibleName
    readonly property real position: to > from ? Math.max(0, Math.min(1, (value - from) / (to - from))) : 0
    readonly property bool pressed: mouse.pressed
    readonly property bool hovered: mouse.containsMouse
    // The user chose a new value; the owner stores it, which comes back through value.
    signal moved(real value)

    implicitHeight: 22
    activeFocusOnTab: true
    Accessible.role: Accessible.Slider
    Accessible.name: accessibleName
    Accessible.focusable: true

    function choose(candidate) {
        const clamped = Math.max(from, Math.min(to, candidate));
        if (clamped !== value)
            moved(clamped);
    }
    function chooseAt(x) {
        choose(from + (to - from) * Math.max(0, Math.min(1, x / width)));
    }

    Keys.onPressed: event => {
        switch (event.key) {
        case Qt.Key_Left:
        case Qt.Key_Down:
            choose(value - stepSize);
            break;
        case Qt.Key_Right:
        case Qt.Key_Up:
            choose(value + stepSize);
            break;
        case Qt.Key_Home:
            choose(from);
            break;
        case Qt.Key_End:
            choose(to);
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    MouseArea {
        id: mouse
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        preventStealing: true
        onPressed: mouseEvent => track.chooseAt(mouseEvent.x)
        onPositionChanged: mouseEvent => {
            if (pressed)
                track.chooseAt(mouseEvent.x);
        }
    }
    FocusRing {
        visible: track.activeFocus
        radiusOfTarget: track.height / 2
    }
}
