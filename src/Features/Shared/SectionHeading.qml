import QtQuick
import Pitchlark.DesignSystem

// A heading over a list on a screen, with an optional note at its right such as a count.
Item {
    id: heading

    property string title
    property string note

    implicitHeight: label.implicitHeight + topPadding
    readonly property int topPadding: 6

    Accessible.role: Accessible.Heading
    Accessible.name: title

    Text {
        id: label
        anchors { left: parent.left; leftMargin: 4; bottom: parent.bottom }
        text: heading.title
        textFormat: Text.PlainText
        font.pixelSize: 15
        font.weight: Font.Bold
        color: Theme.primary
    }
    Text {
        anchors { right: parent.right; rightMargin: 4; baseline: label.baseline }
        visible: heading.note.length > 0
        text: heading.note
        textFormat: Text.PlainText
        font.pixelSize: 11
        color: Theme.tertiary
    }
}
