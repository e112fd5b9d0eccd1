import QtQuick
import Pitchlark.Features

// Whether a list's cards are arriving: while the list is first built and right after its rows are
// replaced (another day, another page), not when a poll updates them in place.
QtObject {
    id: gate

    property RecordListModel rows
    property bool open: true

    // Closes once the cards of this turn of the event loop are built.
    function closeSoon() {
        closer.restart();
    }
    readonly property Timer closer: Timer {
        interval: 0
        onTriggered: gate.open = false
    }

    Component.onCompleted: closeSoon()

    readonly property Connections resets: Connections {
        target: gate.rows
        function onModelAboutToBeReset() {
            gate.open = true;
            gate.closeSoon();
        }
    }
}
