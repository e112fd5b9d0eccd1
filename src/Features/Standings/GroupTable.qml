pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// One group's table on a card: its title, the column heading and a row per team in place order, with
// one team's row picked out when a page is about that team. Draws nothing of a group it has not got.
// While scores are hidden it lists the teams by name with no places or figures, which would tell results.
GlassCard {
    id: table

    required property AppModel model
    // The group's letter, and its rows: the model's table of the chosen group or a StandingListModel.
    required property string group
    required property RecordListModel rows
    property string highlightedTeamID
    readonly property bool concealed: model.hideScores
    readonly property int rowHeight: 36

    surfaceOpacity: model.glass.surfaceOpacity
    padding: 10

    Column {
        width: parent.width
        spacing: 2
        Item {
            width: parent.width
            height: title.implicitHeight
            Text {
                id: title
                leftPadding: 6
                bottomPadding: 6
                text: "Group " + table.group
                textFormat: Text.PlainText
                font.pixelSize: 17
                font.weight: Font.Bold
                color: Theme.primary
            }
            Text {
                objectName: "tableHidden-" + table.group
                anchors { right: parent.right; rightMargin: 6; baseline: title.baseline }
                visible: table.concealed
                text: "Table hidden"
                textFormat: Text.PlainText
                font.pixelSize: 12
                font.italic: true
                color: Theme.tertiary
            }
        }
        TableColumns {
            width: parent.width
            height: 20
            heading: true
            position: table.concealed ? "" : "#"
            team: "TEAM"
            figures: table.concealed ? [] : ["P", "W", "D", "L", "GF", "GA", "GD"]
            points: table.concealed ? "" : "PTS"
        }
        Repeater {
            model: table.rows
            delegate: StandingsRowView {
                width: parent.width
                height: table.rowHeight
                model: table.model
                concealed: table.concealed
                highlighted: standing.teamID === table.highlightedTeamID
            }
        }
    }
}
