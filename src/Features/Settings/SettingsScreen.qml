import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The settings page: every change is stored and takes effect at once.
Column {
    id: screen

    required property AppModel model
    property UpdateController updates

    spacing: Theme.rowSpacing + 6
    bottomPadding: Theme.gutter

    MenuBarSettings {
        width: parent.width
        model: screen.model
    }
    NotificationSettings {
        width: parent.width
        model: screen.model
    }
    GlassSettings {
        width: parent.width
        model: screen.model
    }
    SystemSettings {
        width: parent.width
        model: screen.model
        updates: screen.updates
    }
}
