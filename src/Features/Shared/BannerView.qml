import QtQuick
import Pitchlark.DesignSystem

// One alert inside the panel: an icon tile for its kind, the title and the message. A click dismisses it.
Rectangle {
    id: card

    property var banner
    signal dismiss

    readonly property var kindStyle: ({
        0: { symbol: "⏱", color: Theme.accent },
        1: { symbol: "⚽", color: Theme.qualGreen },
        2: { symbol: "🏁", color: Theme.secondary }
    })[card.banner ? card.banner.kind : 0]

    implicitHeight: 58
    radius: 16
    color: Qt.rgba(1, 1, 1, 0.9)
    border.color: Theme.cardStrokeTop

    Row {
        anchors { left: parent.left; verticalCenter: parent.verticalCenter; leftMargin: 10 }
        spacing: 10
        Rectangle {
            width: 36
            height: 36
            radius: 10
            color: card.kindStyle.color
            Text {
                anchors.centerIn: parent
                text: card.kindStyle.symbol
                textFormat: Text.PlainText
                font.pixelSize: 18
                color: "white"
            }
        }
        Column {
            anchors.verticalCenter: parent.verticalCenter
            Text {
                text: card.banner ? card.banner.title : ""
                textFormat: Text.PlainText
                font.pixelSize: 13
                font.bold: true
                color: Theme.primary
            }
            Text {
                width: card.width - 76
                text: card.banner ? card.banner.message : ""
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: 12
                color: Theme.secondary
            }
        }
    }
    TapHandler { onTapped: card.dismiss() }
}
