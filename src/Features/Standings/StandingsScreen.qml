import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The group tables: a picker over the twelve groups, then the chosen group's table with its
// qualification places and their legend. Before the tables arrive, a calm note instead.
Item {
    id: screen

    required property QtObject model

    SectionSwitcher {
        id: picker
        objectName: "groupPicker"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter }
        implicitHeight: 30
        sections: screen.model.allGroups.map(letter => ({ key: letter, title: letter, accessibleName: "Group " + letter }))
        current: screen.model.selectedGroup
        onSelected: key => screen.model.selectedGroup = key
    }
    FadingScrollView {
        anchors { left: parent.left; right: parent.right; top: picker.bottom; bottom: parent.bottom }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter; topMargin: 4 }

        Column {
            width: parent.width
            spacing: Theme.rowSpacing

            ErrorNote {
                width: parent.width
                visible: message.length > 0
                message: screen.model.errorMessage
                surfaceOpacity: screen.model.surfaceOpacity
            }
            GroupTable {
                id: table
                objectName: "standingsTable"
                width: parent.width
                visible: rows.count > 0
                model: screen.model
                group: screen.model.selectedGroup
                rows: screen.model.lists.groupTable
                transform: AppearAnimation { target: table }
            }
            QualificationLegend {
                objectName: "qualificationLegend"
                anchors.horizontalCenter: parent.horizontalCenter
                visible: table.visible
            }
            EmptyState {
                objectName: "standingsEmpty"
                width: parent.width
                visible: !table.visible
                symbol: "🏆"
                title: screen.model.isLoading ? "Loading the tables…" : "No tables yet"
                message: screen.model.isLoading ? "" : "The group tables appear with the next update."
            }
        }
    }
}
