import QtQuick
import Pitchlark.DesignSystem

// The service's error, on a card tinted red, with a button to try again at once rather than wait for
// the next poll. It shows only when nothing is held from before.
GlassCard {
    id: note

    property string message
    signal retry()

    tint: Qt.rgba(Theme.liveRed.r, Theme.liveRed.g, Theme.liveRed.b, 0.1)
    padding: 12
    Accessible.role: Accessible.AlertMessage
    Accessible.name: message

    Column {
        width: parent.width
        spacing: 8
        Text {
            width: parent.width
            text: "⚠  " + note.message
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            font.pixelSize: 12
            font.weight: Font.Medium
            color: Theme.liveRed
        }
        CapsuleButton {
            objectName: "tryAgain"
            text: "Try again"
            onClicked: note.retry()
        }
    }
}
