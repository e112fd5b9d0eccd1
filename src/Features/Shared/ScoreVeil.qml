import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// What stands in for a match's score while scores are hidden: a calm "Score hidden" with the control
// that reveals this one match for the session. Pages that show a revealed match offer to hide it again.
// Its hidesScore tells the card or page around it whether to draw the score at all.
Item {
    id: veil

    required property AppModel model
    required property var match
    // Match pages let a revealed score be hidden again; cards stay quiet once revealed.
    property bool offersToHideAgain: false
    readonly property bool revealed: model.revealedMatchIDs.indexOf(match.id) >= 0
    // A match that has not begun has no score to give away.
    readonly property bool hidesScore: model.hideScores && match.status !== "scheduled" && !revealed

    visible: hidesScore || (offersToHideAgain && model.hideScores && revealed)
    implicitWidth: row.implicitWidth
    implicitHeight: visible ? row.implicitHeight : 0

    Row {
        id: row
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: 8
        Text {
            anchors.verticalCenter: parent.verticalCenter
            visible: veil.hidesScore
            text: "Score hidden"
            textFormat: Text.PlainText
            font.pixelSize: 12
            font.italic: true
            color: Theme.tertiary
        }
        CapsuleButton {
            objectName: (veil.hidesScore ? "reveal-" : "hideAgain-") + veil.match.id
            anchors.verticalCenter: parent.verticalCenter
            kind: "plain"
            fontSize: 11
            text: veil.hidesScore ? "Reveal" : "Hide score"
            accessibleName: (veil.hidesScore ? "Reveal the score of " : "Hide the score of ") + veil.match.fixtureName
            onClicked: veil.hidesScore ? veil.model.revealScore(veil.match.id) : veil.model.concealScore(veil.match.id)
        }
    }
}
