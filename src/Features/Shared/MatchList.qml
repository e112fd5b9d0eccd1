import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// A titled run of match cards, arriving one after another; takes no room when it has no matches. The
// cards come from many days, so each gives its own.
Column {
    id: list

    required property QtObject model
    property string title
    property var matches: []
    property bool counted: true

    visible: matches.length > 0
    spacing: Theme.rowSpacing

    SectionHeading {
        width: parent.width
        title: list.title
        note: !list.counted ? "" : list.matches.length === 1 ? "1 match" : list.matches.length + " matches"
    }
    Repeater {
        model: list.matches
        delegate: MatchCard {
            id: listedCard
            required property var modelData
            required property int index
            width: list.width
            model: list.model
            match: modelData
            dated: true
            transform: AppearAnimation { target: listedCard; delay: 30 * Math.min(index, 8) }
        }
    }
}
