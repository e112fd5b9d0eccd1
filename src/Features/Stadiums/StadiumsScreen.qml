import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The tournament's venues in the feed's order, one card each; a calm note before they arrive.
Item {
    id: screen

    required property QtObject model
    readonly property var stadiums: model.allStadiumsSorted

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
                surfaceOpacity: screen.model.surfaceOpacity
            }
            SectionHeading {
                width: parent.width
                visible: screen.stadiums.length > 0
                title: "Venues"
                note: screen.stadiums.length === 1 ? "1 stadium" : screen.stadiums.length + " stadiums"
            }
            Repeater {
                model: screen.stadiums
                delegate: StadiumRow {
                    id: listedRow
                    required property var modelData
                    required property int index
                    width: parent.width
                    model: screen.model
                    stadium: modelData
                    transform: AppearAnimation { target: listedRow; delay: 30 * Math.min(index, 8) }
                }
            }
            EmptyState {
                objectName: "stadiumsEmpty"
                width: parent.width
                visible: screen.stadiums.length === 0
                symbol: "🏟"
                title: screen.model.isLoading ? "Loading stadiums…" : "No stadiums yet"
                message: screen.model.isLoading ? "" : "The venues appear with the next update."
            }
        }
    }
}
