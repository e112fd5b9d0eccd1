pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem

// A row of segments on a glass track; the current one sits on a raised capsule that slides between
// them. Serves the section tabs and the group picker.
Item {
    id: switcher

    // [{ key, title, accessibleName? }] in order.
    property var sections: []
    property string current
    readonly property int currentIndex: sections.findIndex(section => section.key === current)
    readonly property real segmentWidth: tabs.width / Math.max(1, sections.length)
    signal selected(string key)

    implicitHeight: 34

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Qt.rgba(1, 1, 1, 0.3)
        border.color: Theme.cardStrokeBottom
    }
    Item {
        id: tabs
        anchors.fill: parent
        anchors.margins: 3

        Rectangle {
            visible: switcher.currentIndex >= 0
            x: switcher.currentIndex * switcher.segmentWidth
            width: switcher.segmentWidth
            height: tabs.height
            radius: height / 2
            color: Qt.rgba(1, 1, 1, 0.88)
            border.color: Theme.cardStrokeTop
            Behavior on x { NumberAnimation { duration: 220; easing.type: Easing.OutCubic } }
        }
        Row {
            anchors.fill: parent
            Repeater {
                model: switcher.sections
                delegate: Pressable {
                    required property var modelData
                    readonly property bool isCurrent: modelData.key === switcher.current
                    objectName: "segment-" + modelData.key
                    width: switcher.segmentWidth
                    height: tabs.height
                    accessibleName: modelData.accessibleName ?? modelData.title
                    Accessible.role: Accessible.PageTab
                    Accessible.selected: isCurrent
                    onClicked: switcher.selected(modelData.key)
                    Text {
                        anchors.centerIn: parent
                        text: parent.modelData.title
                        textFormat: Text.PlainText
                        font.pixelSize: 12
                        font.weight: parent.isCurrent ? Font.DemiBold : Font.Medium
                        color: parent.isCurrent ? Theme.primary : Theme.tertiary
                    }
                }
            }
        }
    }
}
