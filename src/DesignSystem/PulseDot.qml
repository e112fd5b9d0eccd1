import QtQuick

// The small dot that breathes between half and full opacity while something is live.
Rectangle {
    id: dot

    property bool pulsing: true
    readonly property int halfPeriod: 850
    // Each step redraws the whole panel, and a 6 px dot looks no smoother at 60 steps a second than at
    // seven: stepping it by a timer keeps an open panel with live matches close to idle.
    readonly property int steps: 6
    property int step: 0

    implicitWidth: 6
    implicitHeight: 6
    radius: width / 2
    // A cosine from full to half opacity and back: eased at both ends, like the breathing it stands for.
    opacity: 0.75 + 0.25 * Math.cos(Math.PI * step / steps)

    Timer {
        interval: dot.halfPeriod / dot.steps
        repeat: true
        // Only while it can be seen: a hidden tag or a hidden panel draws no frames for it.
        running: dot.pulsing && dot.visible && dot.Window.visibility !== Window.Hidden
        onTriggered: dot.step = (dot.step + 1) % (2 * dot.steps)
        onRunningChanged: if (!running) dot.step = 0
    }
}
