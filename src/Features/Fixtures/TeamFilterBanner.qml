import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// Says that the list holds one team's matches, with a control that goes back to the day's fixtures.
GlassCard {
    id: banner

    required property AppModel model
    readonly property var team: model.teamSummary(model.navigation.selectedTeamFilterID)

    surfaceOpacity: model.glass.surfaceOpacity
    tint: Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b, 0.08)
    padding: 10

    Item {
        width: parent.width
        height: close.implicitHeight
        FlagView {
            id: flag
            anchors { left: parent.left; leftMargin: 4; verticalCenter: parent.verticalCenter }
            source: banner.team.flagURL
            code: banner.team.code
        }
        Text {
            anchors { left: flag.right; leftMargin: 10; right: close.left; rightMargin: 8 }
            anchors.verticalCenter: parent.verticalCenter
            text: "All matches of " + banner.team.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: 13
            font.weight: Font.DemiBold
            color: Theme.primary
        }
        IconButton {
            id: close
            objectName: "clearTeamFilter"
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            symbol: "✕"
            accessibleName: "Show all teams"
            onClicked: {
                banner.model.navigation.selectedTeamFilterID = "";
                banner.model.applySelectedDateFilter();
            }
        }
    }
}
