import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// A venue's own page: its record and every match played there, by kick-off. An id that is not among
// the venues gets a clear note instead.
Column {
    id: detail

    required property AppModel model
    required property string stadiumID
    readonly property StadiumLookup lookup: StadiumLookup { model: detail.model; key: detail.stadiumID }
    readonly property bool found: lookup.found
    readonly property apiStadium stadium: lookup.stadium

    spacing: Theme.rowSpacing

    EmptyState {
        objectName: "stadiumNotFound"
        width: parent.width
        visible: !detail.found
        symbol: "🔎"
        title: detail.model.isLoading ? "Loading the stadium…" : "Stadium not found"
        message: detail.model.isLoading ? "" : "This venue is not one of the tournament's stadiums."
    }
    GlassCard {
        id: hero
        objectName: "stadiumHero"
        width: parent.width
        visible: detail.found
        surfaceOpacity: detail.model.glass.surfaceOpacity
        transform: AppearAnimation { target: hero }

        Column {
            width: parent.width
            spacing: 10
            Column {
                width: parent.width
                spacing: 2
                Text {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: "🏟"
                    textFormat: Text.PlainText
                    font.pixelSize: 34
                }
                Text {
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    text: detail.found ? detail.stadium.nameEn : ""
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    font.pixelSize: 20
                    font.weight: Font.Bold
                    color: Theme.primary
                }
                Text {
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    text: detail.stadium.place
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    font.pixelSize: 13
                    color: Theme.secondary
                }
            }
            Rectangle {
                width: parent.width
                height: 1
                color: Qt.rgba(Theme.primary.r, Theme.primary.g, Theme.primary.b, 0.07)
            }
            Column {
                objectName: "stadiumFacts"
                width: parent.width
                FactLine {
                    width: parent.width
                    label: "FIFA name"
                    value: detail.found ? detail.stadium.fifaName : ""
                }
                FactLine {
                    width: parent.width
                    label: "City"
                    value: detail.found ? detail.stadium.cityEn : ""
                }
                FactLine {
                    width: parent.width
                    label: "Country"
                    value: detail.found ? detail.stadium.countryEn : ""
                }
                FactLine {
                    width: parent.width
                    label: "Region"
                    value: detail.found ? detail.stadium.region : ""
                }
                FactLine {
                    objectName: "stadiumCapacity"
                    width: parent.width
                    label: "Capacity"
                    value: detail.stadium.capacityText
                }
            }
        }
    }
    MatchList {
        objectName: "stadiumMatches"
        width: parent.width
        model: detail.model
        title: "Matches here"
        rows: MatchListModel { matches: detail.lookup.matches }
    }
    EmptyState {
        width: parent.width
        visible: detail.found && detail.lookup.matches.length === 0
        symbol: "⚽"
        title: "No matches here yet"
        message: "Matches at this venue appear once they are scheduled."
    }
}
