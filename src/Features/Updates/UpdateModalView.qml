import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The update dialog inside the panel, for a check the user started: a dimmed backdrop and a card with
// the phase's badge, texts, progress and answers. A click on the backdrop closes it, except while an
// update is offered or ready: those must be answered with a button.
Item {
    id: modal

    required property UpdateController controller
    // How far the backdrop reaches past the view's own bounds, so it dims the whole panel.
    property real bleed
    readonly property string kind: controller.phase.kindName
    readonly property bool awaitsAnswer: kind === "available" || kind === "readyToRelaunch"
    readonly property int cardWidth: 286
    readonly property int cardRadius: 22

    Rectangle {
        objectName: "updateBackdrop"
        anchors.fill: parent
        anchors.margins: -modal.bleed
        color: Qt.rgba(0, 0, 0, 0.28)
        MouseArea {
            anchors.fill: parent
            onClicked: if (!modal.awaitsAnswer) modal.controller.dismiss()
        }
    }
    CardShadow {
        card: card
        drop: 6
        opacity: 0.22
    }
    Rectangle {
        id: card
        objectName: "updateModal"
        anchors.centerIn: parent
        width: modal.cardWidth
        height: content.implicitHeight + 2 * modal.cardRadius
        radius: modal.cardRadius
        color: Qt.rgba(1, 1, 1, 0.95)
        border.color: Qt.rgba(1, 1, 1, 0.6)
        Accessible.role: Accessible.Dialog
        Accessible.name: modal.controller.statusTitle

        // Clicks on the card are its own, not the backdrop's.
        MouseArea { anchors.fill: parent }

        Column {
            id: content
            x: modal.cardRadius
            y: modal.cardRadius
            width: parent.width - 2 * modal.cardRadius
            spacing: 14

            UpdateBadge {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 52
                glyphSize: 24
                controller: modal.controller
            }
            Column {
                width: parent.width
                spacing: 4
                Text {
                    objectName: "updateTitle"
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    text: modal.controller.statusTitle
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    font.pixelSize: 15
                    font.bold: true
                    color: Theme.primary
                }
                Text {
                    objectName: "updateSubtitle"
                    width: parent.width
                    visible: text.length > 0
                    horizontalAlignment: Text.AlignHCenter
                    text: modal.controller.statusSubtitle
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    font.pixelSize: 12
                    color: Theme.secondary
                }
            }
            LinearProgress {
                objectName: "updateProgress"
                width: parent.width
                visible: modal.kind === "downloading"
                value: modal.controller.phase.progress
            }
            UpdateButtons {
                anchors.horizontalCenter: parent.horizontalCenter
                controller: modal.controller
            }
        }
    }
}
