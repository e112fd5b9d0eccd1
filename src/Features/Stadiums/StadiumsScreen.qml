pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The tournament's venues in the feed's order, one card each; a calm note before they arrive.
Item {
    id: screen

    required property AppModel model
    readonly property int stadiumCount: model.lists.stadiums.count

    FadingScrollView {
        anchors { fill: parent; leftMargin: Theme.gutter; rightMargin: Theme.gutter }

        Column {
            width: parent.width
            spacing: Theme.rowSpacing

            ErrorNote {
                width: parent.width
                visible: message.length > 0
                message: screen.model.errorMessage
                onRetry: screen.model.refresh()
                surfaceOpacity: screen.model.glass.surfaceOpacity
            }
            SectionHeading {
                width: parent.width
                visible: screen.stadiumCount > 0
                title: "Venues"
                note: screen.stadiumCount === 1 ? "1 stadium" : screen.stadiumCount + " stadiums"
            }
            ArrivalGate {
                id: arrival
                rows: screen.model.lists.stadiums
            }
            Repeater {
                model: screen.model.lists.stadiums
                delegate: StadiumRow {
                    id: listedRow
                    required property int index
                    width: parent.width
                    model: screen.model
                    transform: AppearAnimation {
                        target: listedRow
                        arriving: arrival.open
                        delay: 30 * Math.min(listedRow.index, 8)
                    }
                }
            }
            EmptyState {
                objectName: "stadiumsEmpty"
                width: parent.width
                visible: screen.stadiumCount === 0
                symbol: "🏟"
                title: screen.model.isLoading ? "Loading stadiums…" : "No stadiums yet"
                message: screen.model.isLoading ? "" : "The venues appear with the next update."
            }
        }
    }
}
