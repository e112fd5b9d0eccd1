import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// A setting that is on or off: its name and explanation, with a switch at the end.
Item {
    id: row

    property string title
    property string detail
    property bool checked
    // The switch's object name, for whoever needs to find it.
    property string controlName
    signal toggled(bool checked)

    implicitHeight: Math.max(label.implicitHeight, toggle.implicitHeight)
    opacity: enabled ? 1 : 0.5

    RowLabel {
        id: label
        anchors { left: parent.left; right: toggle.left; rightMargin: 12; verticalCenter: parent.verticalCenter }
        title: row.title
        detail: row.detail
    }
    ToggleSwitch {
        id: toggle
        objectName: row.controlName
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        accessibleName: row.title
        checked: row.checked
        onToggled: checked => row.toggled(checked)
    }
}
