pragma Singleton

import QtQuick

// One beat for every live dot on screen: dots that breathe in step redraw the panel together, once a
// step. Each step redraws the whole glass panel (twice where a dot sits in a faded list), and a 6 px dot
// breathing in four steps each way reads the same as one animated at the frame rate.
QtObject {
    id: clock

    readonly property int halfPeriod: 850
    readonly property int steps: 4
    property int step: 0
    // The dots that can be seen: the clock stops when there are none.
    property int watchers: 0
    // A cosine from full to half opacity and back: eased at both ends, like the breathing it stands for.
    readonly property real opacity: 0.75 + 0.25 * Math.cos(Math.PI * step / steps)

    readonly property Timer beat: Timer {
        interval: clock.halfPeriod / clock.steps
        repeat: true
        running: clock.watchers > 0
        onTriggered: clock.step = (clock.step + 1) % (2 * clock.steps)
        onRunningChanged: if (!running) clock.step = 0
    }
}
