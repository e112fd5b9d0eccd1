import QtQuick
import Pitchlark.DesignSystem

// Anything that can be clicked: reachable with Tab, activated with Enter, Return or Space, named for
// assistive technology, with a focus ring that follows its shape.
Item {
    id: control

    property string accessibleName
    property real focusRadius: height / 2
    readonly property bool hovered: mouse.containsMouse
    readonly property bool pressed: mouse.pressed
    signal clicked

    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: accessibleName
    Accessible.focusable: true
    Accessible.onPressAction: control.clicked()
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space) {
            event.accepted = true;
            control.clicked();
        }
    }

    MouseArea {
        id: mouse
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: control.clicked()
    }
    FocusRing {
        visible: control.activeFocus
        radiusOfTarget: control.focusRadius
    }
}
