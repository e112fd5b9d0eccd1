import QtQuick
import Pitchlark.DesignSystem

// A setting's name, and below it a short explanation when it has one.
Column {
    id: label

    property string title
    property string detail

    spacing: 2

    Text {
        width: parent.width
        text: label.title
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: 13
        font.weight: Font.Medium
        color: Theme.primary
    }
    Text {
        width: parent.width
        visible: text.length > 0
        text: label.detail
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        font.pixelSize: 11
        color: Theme.tertiary
    }
}
