import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The round badge of the update toast and dialog: a spinner while work is running, otherwise the
// phase's symbol, on a faint disc of the phase's colour.
Rectangle {
    id: badge

    required property UpdateController controller
    property int glyphSize: 15
    readonly property string kind: controller.phase.kindName
    readonly property bool busy: kind === "checking" || kind === "downloading" || kind === "installing"
    readonly property color tone: kind === "error" ? Theme.playoffAmber
                                : kind === "upToDate" ? Theme.qualGreen : Theme.accent
    readonly property real discOpacity: 0.18

    width: 34
    height: width
    radius: width / 2
    color: Qt.rgba(tone.r, tone.g, tone.b, discOpacity)

    Spinner {
        objectName: "updateSpinner"
        anchors.centerIn: parent
        width: badge.glyphSize
        height: width
        visible: badge.busy
        color: badge.tone
    }
    SymbolGlyph {
        objectName: "updateIcon"
        anchors.centerIn: parent
        width: badge.glyphSize
        height: width
        visible: !badge.busy
        name: badge.controller.iconName
        color: badge.tone
    }
}
