import QtQuick
import Pitchlark.DesignSystem

// What the coloured bars of a group table mean.
Row {
    spacing: 16

    Repeater {
        model: [
            { color: Theme.qualGreen, label: "Top two advance" },
            { color: Theme.playoffAmber, label: "Best-3rd playoff" }
        ]
        delegate: Row {
            required property var modelData
            spacing: 6
            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: 8
                height: 8
                radius: 4
                color: parent.modelData.color
            }
            Text {
                text: parent.modelData.label
                textFormat: Text.PlainText
                font.pixelSize: 11
                color: Theme.secondary
            }
        }
    }
}
