import QtQuick
import Pitchlark.DesignSystem

// The frame of every detail page: a back button and the title, with the page's content below.
Item {
    id: scaffold

    required property QtObject model
    property string title
    default property alias content: body.data

    Row {
        id: bar
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.gutter }
        spacing: 10
        IconButton {
            symbol: "‹"
            toolTip: "Back"
            onClicked: scaffold.model.back()
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            width: bar.width - 40
            text: scaffold.title
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: 20
            font.bold: true
            color: Theme.primary
        }
    }
    Flickable {
        id: scroller
        anchors { left: parent.left; right: parent.right; top: bar.bottom; bottom: parent.bottom }
        anchors.margins: Theme.gutter
        clip: true
        contentHeight: body.childrenRect.height
        Item {
            id: body
            width: scroller.width
        }
    }
}
