pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// One knockout game in the bracket: its day or where it stands ("AET", "Pens", the live clock), then
// the two sides, each a flag and name or the slot it waits for, with the winner in full ink. While
// scores are hidden a veil stands in for the scores and the winner. A click opens the match.
Pressable {
    id: game

    required property AppModel model
    required property var match
    readonly property bool scheduled: match.status === "scheduled"
    readonly property bool finished: match.status === "finished"
    readonly property bool scoreHidden: veil.hidesScore
    readonly property string winnerTeamID: scoreHidden ? "" : match.winnerTeamID

    objectName: "bracketGame-" + match.id
    implicitHeight: surface.implicitHeight
    focusRadius: Theme.cardRadius
    accessibleName: scoreHidden ? match.fixtureName + ", score hidden, " + match.spoilerFreeDetailLabel + ". Open match"
                                : match.homeTeam + " " + match.displayHomeScore + ", " + match.awayTeam + " "
                                  + match.displayAwayScore + ", "
                                  + (scheduled ? match.kickoffDatedLabel : match.kickoffDetailLabel) + ". Open match"
    onClicked: model.navigation.openMatch(match.id)

    component Side: Item {
        id: side
        property string teamID
        property string name
        property string code
        property string emoji
        property url flagURL
        property string score
        readonly property bool decided: teamID.length > 0 && teamID !== "0"
        readonly property bool won: game.winnerTeamID.length > 0 && game.winnerTeamID === teamID
        readonly property bool lost: game.winnerTeamID.length > 0 && !won

        width: parent.width
        implicitHeight: 20

        FlagView {
            id: flag
            anchors { left: parent.left; verticalCenter: parent.verticalCenter }
            implicitWidth: 20
            implicitHeight: 14
            visible: side.decided
            source: side.flagURL
            emoji: side.emoji
            code: side.code
        }
        Text {
            anchors { left: side.decided ? flag.right : parent.left; leftMargin: side.decided ? 8 : 0 }
            anchors { right: scoreText.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
            text: side.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: side.decided ? 13 : 12
            font.italic: !side.decided
            font.weight: side.won ? Font.Bold : Font.DemiBold
            color: !side.decided || side.lost ? Theme.tertiary : Theme.primary
        }
        Text {
            id: scoreText
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            text: side.score
            textFormat: Text.PlainText
            font.pixelSize: 14
            font.weight: Font.Bold
            color: game.match.isLive ? Theme.liveRed : side.lost ? Theme.tertiary : Theme.primary
        }
    }

    GlassCard {
        id: surface
        anchors.fill: parent
        padding: 10
        surfaceOpacity: game.model.glass.surfaceOpacity + (game.hovered ? 0.12 : 0)
        tint: game.match.isLive ? Qt.rgba(Theme.liveRed.r, Theme.liveRed.g, Theme.liveRed.b, 0.05) : "transparent"

        Column {
            width: parent.width
            spacing: 4

            Item {
                width: parent.width
                height: badge.implicitHeight
                Text {
                    anchors { left: parent.left; right: badge.left; rightMargin: 6; verticalCenter: parent.verticalCenter }
                    text: game.match.kickoffDatedLabel
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    font.pixelSize: 10
                    font.weight: Font.DemiBold
                    color: Theme.tertiary
                }
                StatusBadge {
                    id: badge
                    objectName: "bracketStatus-" + game.match.id
                    anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                    visible: !game.scheduled
                    label: game.scoreHidden ? game.match.spoilerFreeStatusLabel : game.match.compactStatusLabel
                    live: game.match.isLive
                    finished: game.finished
                }
            }
            Side {
                teamID: game.match.homeTeamID
                name: game.match.homeTeam
                code: game.match.homeCode
                emoji: game.match.homeFlagEmoji
                flagURL: game.match.homeFlagURL
                score: game.scoreHidden ? "" : game.match.displayHomeScore
            }
            Side {
                teamID: game.match.awayTeamID
                name: game.match.awayTeam
                code: game.match.awayCode
                emoji: game.match.awayFlagEmoji
                flagURL: game.match.awayFlagURL
                score: game.scoreHidden ? "" : game.match.displayAwayScore
            }
            ScoreVeil {
                id: veil
                width: parent.width
                model: game.model
                match: game.match
            }
        }
    }
}
