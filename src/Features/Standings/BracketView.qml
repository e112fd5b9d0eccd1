pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The knockout tree one round at a time, opening on the round being played or the next one. Games come
// in bracket order, two by two; lines join each pair to the game its winners meet in, shown at the right.
// The last page holds the final, the champion and the third-place game.
Item {
    id: view

    required property AppModel model
    readonly property var bracket: model.bracket
    property int roundIndex: bracket.currentRound
    readonly property var round: bracket.rounds.length > roundIndex ? bracket.rounds[roundIndex] : null
    readonly property var nextRound: bracket.rounds.length > roundIndex + 1 ? bracket.rounds[roundIndex + 1] : null
    readonly property bool onFinal: round !== null && nextRound === null
    readonly property var shortTitles: ({ R32: "Last 32", R16: "Last 16", QF: "Quarters", SF: "Semis", FINAL: "Final" })
    readonly property int linkWidth: 92
    readonly property real lineWidth: 1.5
    readonly property color lineColor: Qt.rgba(Theme.primary.r, Theme.primary.g, Theme.primary.b, 0.22)

    SectionSwitcher {
        id: picker
        objectName: "roundPicker"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter }
        implicitHeight: 30
        visible: view.bracket.rounds.length > 0
        sections: view.bracket.rounds.map((round, index) => ({ key: String(index),
                                                                 title: view.shortTitles[round.round] ?? round.title,
                                                                 accessibleName: round.title }))
        current: String(view.roundIndex)
        onSelected: key => view.roundIndex = Number(key)
    }
    FadingScrollView {
        anchors { left: parent.left; right: parent.right; top: picker.bottom; bottom: parent.bottom }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter; topMargin: 4 }

        Column {
            width: parent.width
            spacing: Theme.rowSpacing

            SectionHeading {
                width: parent.width
                visible: view.round !== null
                title: view.round ? view.round.title : ""
                note: !view.round || view.onFinal ? "" : view.round.games.length + " games"
            }
            Repeater {
                model: view.round && !view.onFinal ? Math.ceil(view.round.games.length / 2) : 0
                delegate: Item {
                    id: pair

                    required property int index
                    readonly property var games: view.round.games
                    readonly property bool paired: 2 * index + 1 < games.length
                    readonly property var fed: view.nextRound.games[index]
                    readonly property real firstMiddle: upper.height / 2
                    readonly property real secondMiddle: paired ? lower.y + lower.height / 2 : firstMiddle

                    width: parent.width
                    implicitHeight: pairColumn.implicitHeight

                    Column {
                        id: pairColumn
                        width: parent.width - view.linkWidth
                        spacing: 6
                        BracketGame {
                            id: upper
                            width: parent.width
                            model: view.model
                            match: pair.games[2 * pair.index]
                        }
                        BracketGame {
                            id: lower
                            width: parent.width
                            visible: pair.paired
                            model: view.model
                            match: pair.games[pair.paired ? 2 * pair.index + 1 : 2 * pair.index]
                        }
                    }
                    // ] from the middles of the two games, then out to the game they feed.
                    Rectangle {
                        x: pairColumn.width; y: pair.firstMiddle; width: 10; height: view.lineWidth
                        color: view.lineColor
                    }
                    Rectangle {
                        x: pairColumn.width; y: pair.secondMiddle; width: 10; height: view.lineWidth
                        color: view.lineColor
                    }
                    Rectangle {
                        x: pairColumn.width + 10; y: pair.firstMiddle; width: view.lineWidth
                        height: pair.secondMiddle - pair.firstMiddle + view.lineWidth
                        color: view.lineColor
                    }
                    Rectangle {
                        x: pairColumn.width + 10; y: (pair.firstMiddle + pair.secondMiddle) / 2; width: 8
                        height: view.lineWidth
                        color: view.lineColor
                    }
                    Pressable {
                        id: link
                        objectName: "bracketLink-" + pair.fed.id
                        x: pairColumn.width + 18
                        width: view.linkWidth - 18
                        height: linkText.implicitHeight + 10
                        y: (pair.firstMiddle + pair.secondMiddle) / 2 - height / 2
                        focusRadius: 8
                        accessibleName: "Next: " + pair.fed.homeTeam + " v " + pair.fed.awayTeam + ". Open match"
                        onClicked: view.model.navigation.openMatch(pair.fed.id)

                        Rectangle {
                            anchors.fill: parent
                            radius: 8
                            color: Qt.rgba(1, 1, 1, link.hovered ? 0.5 : 0.3)
                            border.color: view.lineColor
                        }
                        Column {
                            id: linkText
                            anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
                            anchors.margins: 6
                            Text {
                                width: parent.width
                                text: view.shortTitles[pair.fed.round] ?? pair.fed.round
                                textFormat: Text.PlainText
                                elide: Text.ElideRight
                                font.pixelSize: 10
                                font.weight: Font.DemiBold
                                color: Theme.tertiary
                            }
                            Text {
                                width: parent.width
                                text: (pair.fed.homeTeamID !== "0" ? pair.fed.homeCode : "?") + " v "
                                      + (pair.fed.awayTeamID !== "0" ? pair.fed.awayCode : "?")
                                textFormat: Text.PlainText
                                elide: Text.ElideRight
                                font.pixelSize: 12
                                font.weight: Font.Bold
                                color: Theme.secondary
                            }
                        }
                    }
                }
            }
            // The final alone, once its round is picked; kept across polls like every other card.
            Repeater {
                model: MatchListModel { matches: view.onFinal ? view.round.games : [] }
                delegate: BracketGame {
                    width: parent.width
                    model: view.model
                }
            }
            GlassCard {
                objectName: "champion"
                width: parent.width
                visible: view.onFinal && view.bracket.championName.length > 0 && !view.model.hideScores
                surfaceOpacity: view.model.glass.surfaceOpacity
                tint: Qt.rgba(Theme.playoffAmber.r, Theme.playoffAmber.g, Theme.playoffAmber.b, 0.14)
                Accessible.role: Accessible.StaticText
                Accessible.name: "Champion: " + view.bracket.championName

                Column {
                    width: parent.width
                    spacing: 2
                    Text {
                        anchors.horizontalCenter: parent.horizontalCenter
                        text: "🏆"
                        textFormat: Text.PlainText
                        font.pixelSize: 30
                    }
                    Text {
                        anchors.horizontalCenter: parent.horizontalCenter
                        text: "Champion"
                        textFormat: Text.PlainText
                        font.pixelSize: 11
                        font.weight: Font.DemiBold
                        font.letterSpacing: 0.4
                        color: Theme.tertiary
                    }
                    Text {
                        objectName: "championName"
                        anchors.horizontalCenter: parent.horizontalCenter
                        text: view.bracket.championName
                        textFormat: Text.PlainText
                        font.pixelSize: 20
                        font.weight: Font.Bold
                        color: Theme.primary
                    }
                }
            }
            SectionHeading {
                width: parent.width
                visible: view.onFinal && view.bracket.placementGames.length > 0
                title: "Third place"
            }
            Repeater {
                model: view.onFinal ? view.bracket.placementGames : []
                delegate: BracketGame {
                    required property var modelData
                    width: parent.width
                    model: view.model
                    match: modelData
                }
            }
            EmptyState {
                objectName: "bracketEmpty"
                width: parent.width
                visible: view.bracket.rounds.length === 0
                symbol: "🏆"
                title: view.model.isLoading ? "Loading the bracket…" : "No knockout games yet"
                message: view.model.isLoading ? "" : "The bracket appears with the next update."
            }
        }
    }
}
