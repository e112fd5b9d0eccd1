import QtQuick
import Pitchlark.DesignSystem

// The small dot that breathes between half and full opacity while something is live.
Rectangle {
    id: dot

    property bool pulsing: true
    // Only while it can be seen: a hidden tag or a hidden panel keeps the beat from running for it.
    readonly property bool watching: pulsing && visible && Window.visibility !== Window.Hidden

    implicitWidth: 6
    implicitHeight: 6
    radius: width / 2
    opacity: watching ? PulseClock.opacity : 1

    onWatchingChanged: PulseClock.watchers += watching ? 1 : -1
    Component.onCompleted: if (watching) PulseClock.watchers += 1
    Component.onDestruction: if (watching) PulseClock.watchers -= 1
}
