import QtQuick
import Pitchlark.DesignSystem

// One figure on a detail page's summary: the value large, what it counts small beneath.
Rectangle {
    id: tile

    property string value
    property string label

    implicitHeight: figures.implicitHeight + 16
    radius: 12
    color: Qt.rgba(Theme.primary.r, Theme.primary.g, Theme.primary.b, 0.045)
    Accessible.role: Accessible.StaticText
    Accessible.name: label + " " + value

    Column {
        id: figures
        anchors.centerIn: parent
        spacing: 1
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: tile.value
            textFormat: Text.PlainText
            font.pixelSize: 17
            font.weight: Font.Bold
            color: Theme.primary
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: tile.label.toUpperCase()
            textFormat: Text.PlainText
            font.pixelSize: 9
            font.weight: Font.DemiBold
            font.letterSpacing: 0.6
            color: Theme.tertiary
        }
    }
}
