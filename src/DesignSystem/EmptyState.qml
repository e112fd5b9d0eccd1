import QtQuick
import Pitchlark.DesignSystem

// What a screen shows when it has nothing to list: a large faded symbol, a title and one calm line.
Column {
    id: empty

    property string symbol
    property string title
    property string message
    readonly property int symbolSize: 38

    spacing: 6
    topPadding: 36
    bottomPadding: 36

    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        text: empty.symbol
        textFormat: Text.PlainText
        font.pixelSize: empty.symbolSize
        opacity: 0.55
    }
    Text {
        width: empty.width
        horizontalAlignment: Text.AlignHCenter
        text: empty.title
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        font.pixelSize: 15
        font.weight: Font.DemiBold
        color: Theme.secondary
    }
    Text {
        width: empty.width
        horizontalAlignment: Text.AlignHCenter
        visible: text.length > 0
        text: empty.message
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        font.pixelSize: 12
        color: Theme.tertiary
    }
}
