import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The content of the update toast: a card with the phase's badge, its title and subtitle, the download
// progress, and the answers it offers. The window around it is transparent, so the card draws its own
// shadow in the margin around it.
Item {
    id: toast

    required property UpdateController controller
    readonly property string kind: controller.phase.kindName
    readonly property int cardWidth: 330
    readonly property int shadowMargin: 12
    readonly property int cardRadius: 18

    implicitWidth: cardWidth + 2 * shadowMargin
    implicitHeight: card.height + 2 * shadowMargin

    Accessible.role: Accessible.AlertMessage
    Accessible.name: controller.statusTitle

    CardShadow {
        card: card
        drop: 3
        opacity: 0.22
    }
    Rectangle {
        id: card
        objectName: "updateToast"
        x: toast.shadowMargin
        y: toast.shadowMargin
        width: toast.cardWidth
        height: content.implicitHeight + 2 * Theme.cardPadding
        radius: toast.cardRadius
        color: Qt.rgba(1, 1, 1, 0.95)
        border.color: Qt.rgba(0, 0, 0, 0.08)

        Column {
            id: content
            x: Theme.cardPadding
            y: Theme.cardPadding
            width: parent.width - 2 * Theme.cardPadding
            spacing: 8

            Row {
                width: parent.width
                spacing: 12
                UpdateBadge {
                    id: badge
                    controller: toast.controller
                }
                Column {
                    width: parent.width - badge.width - parent.spacing
                    anchors.verticalCenter: badge.verticalCenter
                    spacing: 3
                    Text {
                        objectName: "updateTitle"
                        width: parent.width
                        text: toast.controller.statusTitle
                        textFormat: Text.PlainText
                        elide: Text.ElideRight
                        font.pixelSize: 13
                        font.bold: true
                        color: Theme.primary
                    }
                    Text {
                        objectName: "updateSubtitle"
                        width: parent.width
                        visible: text.length > 0
                        text: toast.controller.statusSubtitle
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        font.pixelSize: 11
                        color: Theme.secondary
                    }
                    LinearProgress {
                        objectName: "updateProgress"
                        width: parent.width
                        visible: toast.kind === "downloading"
                        value: toast.controller.phase.progress
                    }
                }
            }
            UpdateButtons {
                anchors.right: parent.right
                controller: toast.controller
            }
        }
    }
}
