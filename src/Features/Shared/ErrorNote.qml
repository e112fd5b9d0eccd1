import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The service's error, on a card tinted red, above whatever the screen still shows from before.
GlassCard {
    id: note

    property string message

    tint: Qt.rgba(Theme.liveRed.r, Theme.liveRed.g, Theme.liveRed.b, 0.1)
    padding: 12
    Accessible.role: Accessible.AlertMessage
    Accessible.name: message

    Text {
        width: parent.width
        text: "⚠  " + note.message
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        font.pixelSize: 12
        font.weight: Font.Medium
        color: Theme.liveRed
    }
}
