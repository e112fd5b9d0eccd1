pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The tournament's tables, as groups or as the knockout tree. The groups view lists every table, the
// followed teams' groups first; the picker scrolls to a group and, as the list scrolls, marks the group
// at its top. Before the tables arrive, a calm note instead.
Item {
    id: screen

    required property AppModel model

    function scrollToGroup(letter) {
        for (let index = 0; index < tables.count; ++index) {
            const table = tables.itemAt(index) as GroupTable;
            if (table && table.group === letter)
                scroll.contentY = Math.max(0, Math.min(table.y, scroll.flickable.contentHeight - scroll.height));
        }
    }

    function markTopGroup() {
        // At the end of the list the last groups cannot reach the top: one picked there stays marked.
        const flick = scroll.flickable;
        if (flick.contentY >= flick.contentHeight - scroll.height - 1)
            return;
        let top = tables.count > 0 ? (tables.itemAt(0) as GroupTable).group : "";
        let topY = -1;
        for (let index = 0; index < tables.count; ++index) {
            const table = tables.itemAt(index) as GroupTable;
            if (table && table.y <= flick.contentY + 1 && table.y > topY) {
                top = table.group;
                topY = table.y;
            }
        }
        if (top !== "")
            model.navigation.selectedGroup = top;
    }

    Connections {
        target: scroll.flickable
        function onContentYChanged() { screen.markTopGroup(); }
    }

    SectionSwitcher {
        id: views
        objectName: "standingsViews"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter }
        implicitHeight: 30
        sections: [{ key: "groups", title: "Groups" }, { key: "knockout", title: "Knockout" }]
        current: screen.model.navigation.showsBracket ? "knockout" : "groups"
        onSelected: key => screen.model.navigation.showsBracket = key === "knockout"
    }
    Item {
        anchors { left: parent.left; right: parent.right; top: views.bottom; bottom: parent.bottom; topMargin: 6 }
        visible: !screen.model.navigation.showsBracket

        SectionSwitcher {
            id: picker
            objectName: "groupPicker"
            anchors { left: parent.left; right: parent.right; top: parent.top }
            anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter }
            implicitHeight: 30
            sections: Array.from(screen.model.allGroups, letter => ({ key: letter, title: letter, accessibleName: "Group " + letter }))
            current: screen.model.navigation.selectedGroup
            onSelected: key => {
                screen.model.navigation.selectedGroup = key;
                screen.scrollToGroup(key);
            }
        }
        FadingScrollView {
            id: scroll
            anchors { left: parent.left; right: parent.right; top: picker.bottom; bottom: parent.bottom }
            anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter; topMargin: 4 }

            Column {
                width: parent.width
                spacing: Theme.rowSpacing
                onPositioningComplete: screen.markTopGroup()

                ErrorNote {
                    width: parent.width
                    visible: message.length > 0
                    message: screen.model.errorMessage
                    onRetry: screen.model.refresh()
                    surfaceOpacity: screen.model.glass.surfaceOpacity
                }
                QualificationLegend {
                    objectName: "qualificationLegend"
                    anchors.horizontalCenter: parent.horizontalCenter
                    visible: tables.count > 0 && !screen.model.hideScores
                }
                Repeater {
                    id: tables
                    model: screen.model.lists.groupTables
                    delegate: GroupTable {
                        id: table
                        required property groupStanding groupStanding
                        objectName: "standingsTable-" + groupStanding.group
                        width: parent.width
                        model: screen.model
                        group: groupStanding.group
                        rows: StandingListModel {
                            standings: table.groupStanding.standings
                            nameOrder: screen.model.hideScores
                        }
                        transform: AppearAnimation { target: table }
                    }
                }
                EmptyState {
                    objectName: "standingsEmpty"
                    width: parent.width
                    visible: tables.count === 0
                    symbol: "🏆"
                    title: screen.model.isLoading ? "Loading the tables…" : "No tables yet"
                    message: screen.model.isLoading ? "" : "The group tables appear with the next update."
                }
            }
        }
    }
    Loader {
        anchors { left: parent.left; right: parent.right; top: views.bottom; bottom: parent.bottom; topMargin: 6 }
        active: screen.model.navigation.showsBracket
        // By its file rather than an inline component, which a Loader cannot build in a bound file.
        Component.onCompleted: setSource("BracketView.qml", { model: screen.model })
    }
}
