pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// Two weeks of days around today, each a tile with its weekday and day number; today carries a dot.
// Choosing a day shows its fixtures.
Item {
    id: strip

    required property AppModel model
    readonly property var keys: model.lists.days
    readonly property int todayIndex: 3
    readonly property int tileWidth: 44
    readonly property int tileHeight: 56
    readonly property int edgeFadeWidth: 28

    function choose(key) {
        model.navigation.selectedTeamFilterID = "";
        model.navigation.selectedDate = key;
        model.applySelectedDateFilter();
    }

    implicitHeight: tileHeight

    ListView {
        id: days
        anchors.fill: parent
        orientation: ListView.Horizontal
        spacing: 4
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        // Days out of sight fade at the edge they lie beyond, so the strip reads as one to scroll.
        layer.enabled: true
        layer.effect: AlphaMask { maskSource: edgeFade }
        model: strip.keys
        currentIndex: strip.keys.indexOf(strip.model.navigation.selectedDate)
        highlightFollowsCurrentItem: false
        Component.onCompleted: positionViewAtIndex(Math.max(0, currentIndex - 2), ListView.Beginning)

        delegate: Pressable {
            id: tile
            required property string modelData
            required property int index
            readonly property bool selected: modelData === strip.model.navigation.selectedDate
                                             && strip.model.navigation.selectedTeamFilterID.length === 0
            readonly property bool today: index === strip.todayIndex

            objectName: "day-" + modelData
            width: strip.tileWidth
            height: strip.tileHeight
            focusRadius: 14
            accessibleName: (today ? "Today, " : "") + strip.model.friendlyDate(modelData)
            Accessible.selected: selected
            onClicked: strip.choose(modelData)

            Rectangle {
                anchors.fill: parent
                radius: 14
                color: tile.selected ? Qt.rgba(1, 1, 1, 0.9) : Qt.rgba(1, 1, 1, tile.hovered ? 0.4 : 0)
                border.color: tile.selected ? Theme.cardStrokeTop : "transparent"
                Behavior on color { ColorAnimation { duration: 140 } }
            }
            Column {
                anchors.centerIn: parent
                spacing: 1
                Text {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: strip.model.weekdayShort(tile.modelData).toUpperCase()
                    textFormat: Text.PlainText
                    font.pixelSize: 10
                    font.weight: Font.DemiBold
                    font.letterSpacing: 0.5
                    color: tile.selected ? Theme.accent : Theme.tertiary
                }
                Text {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: strip.model.dayNumber(tile.modelData)
                    textFormat: Text.PlainText
                    font.pixelSize: 18
                    font.weight: tile.selected ? Font.Bold : Font.DemiBold
                    color: tile.selected ? Theme.primary : Theme.secondary
                }
                Rectangle {
                    anchors.horizontalCenter: parent.horizontalCenter
                    width: 5
                    height: 5
                    radius: 2.5
                    color: tile.today ? Theme.accent : "transparent"
                }
            }
        }
    }
    Rectangle {
        id: edgeFade
        readonly property real leftFade: days.atXBeginning ? 0 : strip.edgeFadeWidth / Math.max(1, width)
        readonly property real rightFade: days.atXEnd ? 0 : strip.edgeFadeWidth / Math.max(1, width)

        anchors.fill: days
        visible: false
        layer.enabled: true
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: edgeFade.leftFade > 0 ? "transparent" : "black" }
            GradientStop { position: edgeFade.leftFade; color: "black" }
            GradientStop { position: 1 - edgeFade.rightFade; color: "black" }
            GradientStop { position: 1; color: edgeFade.rightFade > 0 ? "transparent" : "black" }
        }
    }
}
