import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// A match's own page: the round and kick-off, a large scoreline between the two teams, the scorers and
// the venue. While scores are hidden the scoreline and scorers wait behind a veil. An id that is not in the schedule gets a clear note instead.
Column {
    id: detail

    required property AppModel model
    required property string matchID
    readonly property MatchLookup lookup: MatchLookup { model: detail.model; key: detail.matchID }
    readonly property bool found: lookup.found
    readonly property var match: found ? lookup.match : undefined
    readonly property bool started: found && match.status !== "scheduled"
    readonly property bool scoreHidden: veil.hidesScore

    spacing: Theme.rowSpacing

    EmptyState {
        objectName: "matchNotFound"
        width: parent.width
        visible: !detail.found
        symbol: "🔎"
        title: "Match not found"
        message: "This match is not in the tournament's schedule."
    }
    GlassCard {
        id: hero
        objectName: "matchHero"
        width: parent.width
        visible: detail.found
        surfaceOpacity: detail.model.glass.surfaceOpacity
        transform: AppearAnimation { target: hero }

        Column {
            width: parent.width
            spacing: 12
            Item {
                width: parent.width
                height: Math.max(heading.implicitHeight, pin.implicitHeight)
                Column {
                    id: heading
                    anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
                    spacing: 2
                    Text {
                        width: parent.width
                        horizontalAlignment: Text.AlignHCenter
                        text: detail.found ? detail.match.roundLabel : ""
                        textFormat: Text.PlainText
                        font.pixelSize: 12
                        font.weight: Font.Bold
                        font.letterSpacing: 0.4
                        color: Theme.accent
                    }
                    Text {
                        width: parent.width
                        horizontalAlignment: Text.AlignHCenter
                        text: detail.found ? detail.match.kickoffFullLabel : ""
                        textFormat: Text.PlainText
                        font.pixelSize: 12
                        color: Theme.tertiary
                    }
                }
                PinButton {
                    id: pin
                    objectName: "detailPin"
                    anchors { right: parent.right; rightMargin: -6; top: parent.top; topMargin: -6 }
                    visible: detail.found
                    model: detail.model
                    match: detail.found ? detail.match : ({})
                }
            }
            Row {
                width: parent.width
                readonly property real sideWidth: (width - score.width) / 2
                MatchSide {
                    width: parent.sideWidth
                    model: detail.model
                    teamID: detail.found ? detail.match.homeTeamID : ""
                    name: detail.found ? detail.match.homeTeam : ""
                    code: detail.found ? detail.match.homeCode : ""
                    emoji: detail.found ? detail.match.homeFlagEmoji : ""
                    flagURL: detail.found ? detail.match.homeFlagURL : ""
                }
                Column {
                    id: score
                    width: 120
                    spacing: 6
                    topPadding: 4
                    Text {
                        objectName: "scoreline"
                        anchors.horizontalCenter: parent.horizontalCenter
                        text: !detail.found ? "" : detail.started && !detail.scoreHidden
                              ? detail.match.displayHomeScore + " – " + detail.match.displayAwayScore : "vs"
                        textFormat: Text.PlainText
                        font.pixelSize: 38
                        font.weight: Font.Bold
                        color: !detail.started || detail.scoreHidden ? Theme.faint
                               : detail.match.isLive ? Theme.liveRed : Theme.primary
                    }
                    StatusBadge {
                        anchors.horizontalCenter: parent.horizontalCenter
                        label: !detail.found ? "" : detail.scoreHidden ? detail.match.spoilerFreeStatusLabel
                                                                      : detail.match.compactStatusLabel
                        live: detail.found && detail.match.isLive
                        finished: detail.found && detail.match.status === "finished"
                    }
                    Text {
                        anchors.horizontalCenter: parent.horizontalCenter
                        text: !detail.found ? "" : detail.scoreHidden ? detail.match.spoilerFreeDetailLabel
                                                                     : detail.match.kickoffDetailLabel
                        textFormat: Text.PlainText
                        font.pixelSize: 11
                        color: Theme.tertiary
                    }
                }
                MatchSide {
                    width: parent.sideWidth
                    model: detail.model
                    teamID: detail.found ? detail.match.awayTeamID : ""
                    name: detail.found ? detail.match.awayTeam : ""
                    code: detail.found ? detail.match.awayCode : ""
                    emoji: detail.found ? detail.match.awayFlagEmoji : ""
                    flagURL: detail.found ? detail.match.awayFlagURL : ""
                }
            }
            ScoreVeil {
                id: veil
                width: parent.width
                model: detail.model
                match: detail.found ? detail.match : ({ id: "", status: "scheduled" })
                offersToHideAgain: true
            }
            ConcurrencyMark {
                anchors.horizontalCenter: parent.horizontalCenter
                visible: detail.found && detail.model.lists.concurrentMatchIDs.indexOf(detail.match.id) >= 0
            }
        }
    }
    GlassCard {
        id: goals
        width: parent.width
        visible: detail.started && !detail.scoreHidden
        surfaceOpacity: detail.model.glass.surfaceOpacity
        transform: AppearAnimation { target: goals; delay: 60 }

        Column {
            width: parent.width
            spacing: 8
            Text {
                text: "Goals"
                textFormat: Text.PlainText
                font.pixelSize: 13
                font.weight: Font.Bold
                color: Theme.primary
            }
            Row {
                width: parent.width
                spacing: 12
                ScorerList {
                    objectName: "homeScorers"
                    width: (parent.width - parent.spacing) / 2
                    scorers: detail.found ? detail.match.homeScorers : []
                }
                ScorerList {
                    objectName: "awayScorers"
                    width: (parent.width - parent.spacing) / 2
                    alignment: Text.AlignRight
                    scorers: detail.found ? detail.match.awayScorers : []
                }
            }
            Text {
                visible: detail.found && detail.match.homeScorers.length + detail.match.awayScorers.length === 0
                text: "No goals yet"
                textFormat: Text.PlainText
                font.pixelSize: 12
                color: Theme.tertiary
            }
        }
    }
    Pressable {
        id: venue
        objectName: "venue"
        width: parent.width
        height: venueCard.implicitHeight
        visible: detail.found
        focusRadius: Theme.cardRadius
        accessibleName: detail.found ? "Open " + detail.match.stadium : ""
        onClicked: detail.model.navigation.openStadium(detail.match.stadiumID)
        transform: AppearAnimation { target: venue; delay: 120 }

        GlassCard {
            id: venueCard
            anchors.fill: parent
            surfaceOpacity: detail.model.glass.surfaceOpacity + (venue.hovered ? 0.12 : 0)
            Item {
                width: parent.width
                height: venueText.implicitHeight
                Text {
                    id: venueText
                    anchors { left: parent.left; right: chevron.left; rightMargin: 8 }
                    text: "🏟  " + (detail.found ? detail.match.venueLine : "")
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    font.pixelSize: 13
                    font.weight: Font.Medium
                    color: Theme.primary
                }
                Text {
                    id: chevron
                    anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                    text: "›"
                    textFormat: Text.PlainText
                    font.pixelSize: 18
                    color: Theme.tertiary
                }
            }
        }
    }
    CapsuleButton {
        objectName: "addMatchToCalendar"
        anchors.horizontalCenter: parent.horizontalCenter
        visible: detail.found && detail.match.status === "scheduled"
        symbol: "📅"
        text: "Add to calendar"
        onClicked: detail.model.addMatchToCalendar(detail.matchID)
    }
}
