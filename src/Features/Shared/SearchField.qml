import QtQuick
import Pitchlark.DesignSystem

// A small search box: a magnifier, the text, and a clear button while there is text. Tab reaches both.
Rectangle {
    id: field

    property alias text: input.text
    property string placeholder
    signal edited(string text)

    implicitHeight: 34
    radius: 10
    color: Qt.rgba(1, 1, 1, 0.55)
    border.color: input.activeFocus ? Theme.accent : Theme.cardStrokeBottom

    Text {
        id: magnifier
        anchors { left: parent.left; leftMargin: 10; verticalCenter: parent.verticalCenter }
        text: "⌕"
        textFormat: Text.PlainText
        font.pixelSize: 15
        font.weight: Font.DemiBold
        color: Theme.tertiary
    }
    TextInput {
        id: input
        anchors { left: magnifier.right; right: clear.left; margins: 8; verticalCenter: parent.verticalCenter }
        font.pixelSize: 13
        color: Theme.primary
        selectByMouse: true
        clip: true
        activeFocusOnTab: true
        Accessible.role: Accessible.EditableText
        Accessible.name: field.placeholder
        onTextEdited: field.edited(text)
        Text {
            visible: !input.text
            text: field.placeholder
            textFormat: Text.PlainText
            font: input.font
            color: Theme.faint
        }
    }
    Pressable {
        id: clear
        objectName: "clearSearch"
        anchors { right: parent.right; rightMargin: 6; verticalCenter: parent.verticalCenter }
        width: 22
        height: 22
        visible: input.text.length > 0
        accessibleName: "Clear search"
        onClicked: {
            input.clear();
            field.edited("");
            input.forceActiveFocus();
        }
        Text {
            anchors.centerIn: parent
            text: "✕"
            textFormat: Text.PlainText
            font.pixelSize: 12
            color: Theme.tertiary
        }
    }
}
