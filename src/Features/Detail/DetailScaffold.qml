import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The frame of every detail page: a back button and the title, with the page's content below.
Item {
    id: scaffold

    required property AppModel model
    property string title
    default property alias content: body.data

    Row {
        id: bar
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.gutter }
        spacing: 10
        IconButton {
            symbol: "‹"
            objectName: "backButton"
            accessibleName: "Back"
            onClicked: scaffold.model.navigation.back()
        }
        Text {
            objectName: "detailTitle"
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
    FadingScrollView {
        anchors { left: parent.left; right: parent.right; top: bar.bottom; bottom: parent.bottom }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter; topMargin: 4 }
        Item {
            id: body
            width: parent.width
            height: childrenRect.height
        }
    }
}
