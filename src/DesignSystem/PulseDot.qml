import QtQuick

// The small dot that breathes between half and full opacity while something is live.
Rectangle {
    id: dot

    property bool pulsing: true
    readonly property int halfPeriod: 850

    implicitWidth: 6
    implicitHeight: 6
    radius: width / 2

    SequentialAnimation on opacity {
        // Only while it can be seen: a hidden tag or a hidden panel draws no frames for it.
        running: dot.pulsing && dot.visible && dot.Window.visibility !== Window.Hidden
        loops: Animation.Infinite
        NumberAnimation { from: 1; to: 0.5; duration: dot.halfPeriod; easing.type: Easing.InOutQuad }
        NumberAnimation { from: 0.5; to: 1; duration: dot.halfPeriod; easing.type: Easing.InOutQuad }
    }
}
