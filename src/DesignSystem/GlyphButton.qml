import QtQuick
import Pitchlark.DesignSystem

// A borderless toggle drawn as one vector icon, filled while on: the follow star, the menu-bar pin.
Pressable {
    id: button

    property alias path: glyph.path
    property bool checked
    property color checkedColor: Theme.accent
    readonly property int glyphSize: 16
    readonly property int hitSize: 26

    implicitWidth: hitSize
    implicitHeight: hitSize
    Accessible.checkable: true
    Accessible.checked: checked

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: Theme.primary
        opacity: button.pressed ? 0.12 : button.hovered ? 0.06 : 0
    }
    SvgGlyph {
        id: glyph
        anchors.centerIn: parent
        width: button.glyphSize
        height: button.glyphSize
        filled: button.checked
        color: button.checked ? button.checkedColor : button.hovered ? Theme.secondary : Theme.faint
        scale: button.pressed ? 0.86 : 1
        Behavior on scale { NumberAnimation { duration: 90 } }
    }
}
