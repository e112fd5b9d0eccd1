import QtQuick
import Pitchlark.DesignSystem

// Where a match stands, as a capsule: the live clock on a pulsing red tag while it runs, "FT" once it is
// over, and the kick-off time before it starts.
Item {
    id: badge

    property string label
    property bool live
    property bool finished
    readonly property int sidePadding: 9
    readonly property int endPadding: 4

    implicitWidth: live ? liveTag.implicitWidth : quiet.implicitWidth
    implicitHeight: live ? liveTag.implicitHeight : quiet.implicitHeight

    LiveTag {
        id: liveTag
        visible: badge.live
        text: badge.label
    }
    Rectangle {
        id: quiet
        visible: !badge.live
        implicitWidth: quietText.implicitWidth + 2 * badge.sidePadding
        implicitHeight: quietText.implicitHeight + 2 * badge.endPadding
        radius: height / 2
        color: badge.finished ? Qt.rgba(Theme.primary.r, Theme.primary.g, Theme.primary.b, 0.08)
                              : Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b, 0.12)
        Text {
            id: quietText
            anchors.centerIn: parent
            text: badge.label
            textFormat: Text.PlainText
            font.pixelSize: 11
            font.weight: Font.Bold
            font.letterSpacing: 0.4
            color: badge.finished ? Theme.secondary : Theme.accent
        }
    }
}
