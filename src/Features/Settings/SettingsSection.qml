import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// One group of settings: a small heading over a glass card that holds its rows.
Column {
    id: section

    required property AppModel model
    property string title
    default property alias rows: body.data

    spacing: 6

    Text {
        leftPadding: 4
        text: section.title.toUpperCase()
        textFormat: Text.PlainText
        font.pixelSize: 11
        font.weight: Font.DemiBold
        font.letterSpacing: 0.6
        color: Theme.tertiary
        Accessible.role: Accessible.Heading
        Accessible.name: section.title
    }
    GlassCard {
        width: parent.width
        surfaceOpacity: section.model.glass.surfaceOpacity
        Column {
            id: body
            width: parent.width
            spacing: 12
        }
    }
}
