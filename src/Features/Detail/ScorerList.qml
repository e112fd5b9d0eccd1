pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem

// One side's scorers, in the feed's order, aligned towards that side.
Column {
    id: list

    property var scorers: []
    property int alignment: Text.AlignLeft

    spacing: 4

    Repeater {
        model: list.scorers
        delegate: Text {
            required property string modelData
            width: list.width
            horizontalAlignment: list.alignment
            text: "⚽ " + modelData
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: 12
            color: Theme.secondary
        }
    }
}
