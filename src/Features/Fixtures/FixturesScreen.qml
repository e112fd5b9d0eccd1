pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The day's matches: the date strip, the team filter when one is set, a heading, then one card per match
// in the model's order (live ones first), or a calm note when there is nothing to show.
Item {
    id: screen

    required property AppModel model
    readonly property bool filtered: model.navigation.selectedTeamFilterID.length > 0
    readonly property bool isToday: model.navigation.selectedDate === model.lists.days[3]
    readonly property int matchCount: model.lists.fixtures.count

    Component.onCompleted: model.applySelectedDateFilter()

    DateStrip {
        id: strip
        objectName: "dateStrip"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter }
        model: screen.model
    }
    FadingScrollView {
        id: scroll
        objectName: "fixturesList"
        anchors { left: parent.left; right: parent.right; top: strip.bottom; bottom: parent.bottom }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter; topMargin: 4 }

        Column {
            width: parent.width
            spacing: Theme.rowSpacing

            TeamFilterBanner {
                width: parent.width
                visible: screen.filtered
                model: screen.model
            }
            Item {
                width: parent.width
                height: heading.implicitHeight
                Text {
                    id: heading
                    objectName: "dayHeading"
                    anchors.left: parent.left
                    text: screen.filtered ? "All matches"
                        : (screen.isToday ? "Today · " : "") + screen.model.friendlyDate(screen.model.navigation.selectedDate)
                    textFormat: Text.PlainText
                    font.pixelSize: 15
                    font.weight: Font.Bold
                    color: Theme.primary
                }
                Text {
                    anchors { right: parent.right; baseline: heading.baseline }
                    visible: screen.matchCount > 0
                    text: screen.matchCount === 1 ? "1 match" : screen.matchCount + " matches"
                    textFormat: Text.PlainText
                    font.pixelSize: 11
                    color: Theme.tertiary
                }
            }
            ErrorNote {
                width: parent.width
                visible: message.length > 0
                message: screen.model.errorMessage
                onRetry: screen.model.refresh()
                surfaceOpacity: screen.model.glass.surfaceOpacity
            }
            ArrivalGate {
                id: arrival
                rows: screen.model.lists.fixtures
            }
            Repeater {
                objectName: "fixtureCards"
                model: screen.model.lists.fixtures
                delegate: MatchCard {
                    id: listedCard
                    required property int index
                    width: parent.width
                    model: screen.model
                    transform: AppearAnimation {
                        target: listedCard
                        arriving: arrival.open
                        delay: 30 * Math.min(listedCard.index, 8)
                    }
                }
            }
            Column {
                id: emptyDay
                objectName: "fixturesEmpty"
                readonly property var facts: screen.model.selectedDayFacts
                readonly property bool before: !screen.filtered && facts.kind === "beforeTournament"
                readonly property bool after: !screen.filtered && facts.kind === "afterTournament"
                readonly property bool rest: !screen.filtered && facts.kind === "restDay"
                width: parent.width
                visible: screen.matchCount === 0
                spacing: 10
                bottomPadding: 24

                EmptyState {
                    width: parent.width
                    bottomPadding: 0
                    symbol: emptyDay.after ? "🏆" : "⚽"
                    title: screen.model.isLoading && emptyDay.facts.kind === "noMatches" ? "Loading fixtures…"
                         : emptyDay.before && emptyDay.facts.countdown.length > 0 ? emptyDay.facts.countdown
                         : emptyDay.after && emptyDay.facts.championName.length > 0 && !screen.model.hideScores
                           ? emptyDay.facts.championName + " win the World Cup"
                         : emptyDay.after ? "The tournament is over"
                         : "No matches on this day"
                    message: emptyDay.before && emptyDay.facts.openingMatch
                             ? emptyDay.facts.openingMatch.homeTeam + " v " + emptyDay.facts.openingMatch.awayTeam
                               + " · " + emptyDay.facts.openingMatch.kickoffDatedLabel
                           : emptyDay.after && emptyDay.facts.finalMatch && screen.model.hideScores
                             ? "Final: " + emptyDay.facts.finalMatch.fixtureName
                           : emptyDay.after && emptyDay.facts.finalMatch
                             ? "Final: " + emptyDay.facts.finalMatch.homeTeam + " " + emptyDay.facts.finalMatch.scorelineDisplay
                               + " " + emptyDay.facts.finalMatch.awayTeam + " · " + emptyDay.facts.finalMatch.kickoffDetailLabel
                           : emptyDay.rest ? "A rest day between match days."
                           : screen.model.isLoading ? "" : "Pick another day above to see its fixtures."
                }
                Row {
                    anchors.horizontalCenter: parent.horizontalCenter
                    spacing: 8
                    CapsuleButton {
                        objectName: "previousMatchDay"
                        visible: emptyDay.rest || emptyDay.after
                        text: "‹ " + screen.model.friendlyDate(emptyDay.facts.previousDateKey)
                        accessibleName: "Go to " + screen.model.friendlyDate(emptyDay.facts.previousDateKey)
                        onClicked: strip.choose(emptyDay.facts.previousDateKey)
                    }
                    CapsuleButton {
                        objectName: "nextMatchDay"
                        visible: emptyDay.rest || emptyDay.before
                        text: (emptyDay.before ? "Opening day, " : "") + screen.model.friendlyDate(emptyDay.facts.nextDateKey) + " ›"
                        accessibleName: "Go to " + screen.model.friendlyDate(emptyDay.facts.nextDateKey)
                        onClicked: strip.choose(emptyDay.facts.nextDateKey)
                    }
                }
            }
        }
    }
}
