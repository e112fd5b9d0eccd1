import QtQuick
import Pitchlark.DesignSystem

// The row of section tabs under the header; the current one sits on a raised capsule.
Item {
    id: switcher

    // [{ key, title }] in order.
    property var sections: []
    property string current
    signal selected(string key)

    implicitHeight: 34

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Qt.rgba(1, 1, 1, 0.3)
        border.color: Theme.cardStrokeBottom
    }
    Row {
        id: tabs
        anchors.fill: parent
        anchors.margins: 3
        Repeater {
            model: switcher.sections
            delegate: Item {
                required property var modelData
                readonly property bool isCurrent: modelData.key === switcher.current
                width: tabs.width / switcher.sections.length
                height: tabs.height
                Rectangle {
                    anchors.fill: parent
                    radius: height / 2
                    color: Qt.rgba(1, 1, 1, 0.85)
                    opacity: parent.isCurrent ? 1 : 0
                    Behavior on opacity { NumberAnimation { duration: 160 } }
                }
                Text {
                    anchors.centerIn: parent
                    text: parent.modelData.title
                    textFormat: Text.PlainText
                    font.pixelSize: 12
                    font.weight: parent.isCurrent ? Font.DemiBold : Font.Medium
                    color: parent.isCurrent ? Theme.primary : Theme.tertiary
                }
                TapHandler { onTapped: switcher.selected(parent.modelData.key) }
            }
        }
    }
}
