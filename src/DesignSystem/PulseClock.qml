pragma Singleton

import QtQuick

// One beat for every live dot on screen: dots that breathe in step redraw the panel together, once a
// step, and a 6 px dot looks no smoother at 60 steps a second than at seven, while each step redraws the
// whole glass panel.
QtObject {
    id: clock

    readonly property int halfPeriod: 850
    readonly property int steps: 6
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
