import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The borderless frosted window the screens live on: frost, tint and grain over whatever the compositor
// blurs behind it, with a white rim and round corners, or, with floating cards, no frame at all and glass
// that fades out towards the edges.
Window {
    id: panel

    required property AppModel model
    // The update controller; null where the program runs without one.
    property UpdateController updates
    // The glass settings, handed in and kept up to date by PanelController.
    required property real blur
    required property real tintHue
    required property real tint
    required property real grain
    required property bool borderless
    property bool compositorBlurs: false
    readonly property bool feathered: borderless
    // With the compositor's blur behind it, the frost runs 0.3 to 0.7 with the Blur setting. Without
    // it the frost must carry legibility on its own: the setting then spans 0.72 (the thinnest frost
    // over which text stays legible on a busy wallpaper) to 0.96 (nearly opaque).
    readonly property real frostOpacity: compositorBlurs ? 0.3 + 0.4 * blur : 0.72 + 0.24 * blur
    readonly property int cornerRadius: 28

    flags: Qt.FramelessWindowHint | Qt.Tool | Qt.WindowStaysOnTopHint
    color: "transparent"
    width: 388
    height: 760
    title: "Pitchlark"

    Item {
        id: glass
        anchors.fill: parent
        visible: false
        layer.enabled: true

        Rectangle {
            anchors.fill: parent
            color: Qt.rgba(0.93, 0.93, 0.93, 1)
            opacity: panel.frostOpacity
        }
        Rectangle {
            anchors.fill: parent
            color: Qt.hsva(panel.tintHue - Math.floor(panel.tintHue), 0.65, 0.85, 1)
            opacity: 0.6 * panel.tint
        }
        Image {
            anchors.fill: parent
            source: "image://glass/grain"
            fillMode: Image.Tile
            opacity: 0.5 * panel.grain
        }
    }

    Item {
        id: glassShape
        anchors.fill: parent
        visible: false
        layer.enabled: true

        Rectangle {
            anchors.fill: parent
            visible: !panel.feathered
            radius: panel.cornerRadius
        }
        // The feathered mask, stretched nine-slice so its soft border stays 20 px at any size.
        BorderImage {
            anchors.fill: parent
            visible: panel.feathered
            source: "image://glass/feather"
            border { left: 20; top: 20; right: 20; bottom: 20 }
        }
    }

    AlphaMask {
        anchors.fill: parent
        source: glass
        maskSource: glassShape
    }

    Rectangle {
        anchors.fill: parent
        visible: !panel.feathered
        radius: panel.cornerRadius
        color: "transparent"
        border.width: 1
        border.color: Qt.rgba(1, 1, 1, 0.55)
    }

    RootPanelView {
        anchors.fill: parent
        model: panel.model
        updates: panel.updates
    }
}
