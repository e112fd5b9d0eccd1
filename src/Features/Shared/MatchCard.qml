import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// One match in the fixtures list: its round, status and pin on top, the two sides with their scores,
// and when and where it is played; outside a heading of its own day it gives the day too. While scores are
// hidden a veil stands in for them. A click opens the match.
Pressable {
    id: card

    required property AppModel model
    required property var match
    property bool dated: false
    readonly property string kickoffText: dated ? match.kickoffDatedLabel : match.kickoffLabel
    readonly property bool finished: match.status === "finished"
    readonly property bool scheduled: match.status === "scheduled"
    readonly property int homeGoals: Number(match.homeScore)
    readonly property int awayGoals: Number(match.awayScore)
    // A shoot-out leaves the scores level, so the side that went through is the model's word.
    readonly property bool scoreHidden: veil.hidesScore
    readonly property bool homeLost: finished && !scoreHidden && (match.winnerTeamID.length > 0 ? match.winnerTeamID !== match.homeTeamID
                                                                                : homeGoals < awayGoals)
    readonly property bool awayLost: finished && !scoreHidden && (match.winnerTeamID.length > 0 ? match.winnerTeamID !== match.awayTeamID
                                                                                : awayGoals < homeGoals)

    objectName: "matchCard-" + match.id
    implicitHeight: surface.implicitHeight
    focusRadius: Theme.cardRadius
    accessibleName: scoreHidden ? match.fixtureName + ", score hidden, " + match.spoilerFreeStatusLabel + ". Open match"
                                : match.homeTeam + " " + match.displayHomeScore + ", " + match.awayTeam + " "
                                  + match.displayAwayScore + ", " + match.compactStatusLabel + ". Open match"
    onClicked: model.navigation.openMatch(match.id)

    GlassCard {
        id: surface
        anchors.fill: parent
        surfaceOpacity: card.model.glass.surfaceOpacity + (card.hovered ? 0.12 : 0)
        tint: card.match.isLive ? Qt.rgba(Theme.liveRed.r, Theme.liveRed.g, Theme.liveRed.b, 0.05)
                                : "transparent"

        Column {
            width: parent.width
            spacing: 6

            Item {
                width: parent.width
                height: Math.max(round.implicitHeight, badge.implicitHeight, pin.implicitHeight)
                Row {
                    anchors { left: parent.left; verticalCenter: parent.verticalCenter }
                    spacing: 8
                    Text {
                        id: round
                        anchors.verticalCenter: parent.verticalCenter
                        text: card.match.roundLabel
                        textFormat: Text.PlainText
                        font.pixelSize: 11
                        font.weight: Font.DemiBold
                        font.letterSpacing: 0.3
                        color: Theme.tertiary
                    }
                    ConcurrencyMark {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: card.model.lists.concurrentMatchIDs.indexOf(card.match.id) >= 0
                    }
                }
                Row {
                    anchors { right: parent.right; rightMargin: -6; verticalCenter: parent.verticalCenter }
                    spacing: 2
                    StatusBadge {
                        id: badge
                        objectName: "status-" + card.match.id
                        anchors.verticalCenter: parent.verticalCenter
                        label: card.scheduled ? card.kickoffText
                               : card.scoreHidden ? card.match.spoilerFreeStatusLabel : card.match.compactStatusLabel
                        live: card.match.isLive
                        finished: card.finished
                    }
                    PinButton {
                        id: pin
                        objectName: "pin-" + card.match.id
                        anchors.verticalCenter: parent.verticalCenter
                        model: card.model
                        match: card.match
                    }
                }
            }
            TeamLine {
                width: parent.width
                model: card.model
                teamID: card.match.homeTeamID
                name: card.match.homeTeam
                code: card.match.homeCode
                emoji: card.match.homeFlagEmoji
                flagURL: card.match.homeFlagURL
                score: card.scoreHidden ? "" : card.match.displayHomeScore
                live: card.match.isLive
                muted: card.homeLost
            }
            TeamLine {
                width: parent.width
                model: card.model
                teamID: card.match.awayTeamID
                name: card.match.awayTeam
                code: card.match.awayCode
                emoji: card.match.awayFlagEmoji
                flagURL: card.match.awayFlagURL
                score: card.scoreHidden ? "" : card.match.displayAwayScore
                live: card.match.isLive
                muted: card.awayLost
            }
            ScoreVeil {
                id: veil
                width: parent.width
                model: card.model
                match: card.match
            }
            Text {
                width: parent.width
                text: (card.scheduled ? "" : card.kickoffText + "  ·  ") + card.match.venueLine
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: 11
                color: Theme.tertiary
            }
        }
    }
}
