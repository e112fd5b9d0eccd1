import QtQuick
import Pitchlark.DesignSystem

// A team's flag: the image when the feed gives an https address for it, else the flag emoji, else the
// team's code on a small tile. Images come through the engine's disk cache.
Item {
    id: flag

    property url source
    property string emoji
    property string code
    readonly property bool secureSource: String(source).startsWith("https://")
    readonly property bool imageShown: secureSource && image.status === Image.Ready
    readonly property int cornerRadius: 3

    implicitWidth: 24
    implicitHeight: 17

    Image {
        id: image
        anchors.fill: parent
        visible: false
        source: flag.secureSource ? flag.source : ""
        sourceSize.width: 2 * flag.width
        fillMode: Image.PreserveAspectCrop
        asynchronous: true
        cache: true
    }
    RoundedClip {
        anchors.fill: parent
        visible: flag.imageShown
        source: image
        radius: flag.cornerRadius
    }
    Rectangle {
        anchors.fill: parent
        visible: flag.imageShown
        radius: flag.cornerRadius
        color: "transparent"
        border.width: 1
        border.color: Qt.rgba(Theme.primary.r, Theme.primary.g, Theme.primary.b, 0.1)
    }
    Text {
        anchors.centerIn: parent
        visible: !flag.imageShown && flag.emoji.length > 0
        text: flag.emoji
        textFormat: Text.PlainText
        font.pixelSize: Math.round(flag.height * 1.05)
    }
    Rectangle {
        anchors.fill: parent
        visible: !flag.imageShown && flag.emoji.length === 0
        radius: flag.cornerRadius
        color: Qt.rgba(Theme.primary.r, Theme.primary.g, Theme.primary.b, 0.08)
        Text {
            anchors.centerIn: parent
            width: parent.width - 2
            horizontalAlignment: Text.AlignHCenter
            text: flag.code
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: Math.max(7, Math.round(flag.height * 0.45))
            font.weight: Font.Bold
            color: Theme.secondary
        }
    }
}
