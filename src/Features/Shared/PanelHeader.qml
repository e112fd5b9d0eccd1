import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The top of the section page: the section's title, the status line, the live pill and two buttons.
Item {
    id: header

    required property AppModel model
    property string title

    implicitHeight: Math.max(titles.implicitHeight, buttons.implicitHeight)

    Column {
        id: titles
        anchors { left: parent.left; verticalCenter: parent.verticalCenter }
        Text {
            text: header.title
            textFormat: Text.PlainText
            font.pixelSize: 24
            font.bold: true
            color: Theme.primary
        }
        Text {
            objectName: "statusLine"
            text: header.model.statusLine
            textFormat: Text.PlainText
            font.pixelSize: 11
            font.weight: Font.Medium
            color: Theme.tertiary
        }
    }

    Row {
        id: buttons
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        spacing: 8

        LivePill {
            anchors.verticalCenter: parent.verticalCenter
            count: header.model.lists.liveMatches.count
            visible: count > 0
        }
        IconButton {
            symbol: "↻"
            accessibleName: "Refresh"
            onClicked: header.model.refresh()
        }
        IconButton {
            symbol: "⚙"
            accessibleName: "Settings"
            onClicked: header.model.navigation.openSettings()
        }
    }
}
