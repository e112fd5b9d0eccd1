pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// A titled run of match cards, arriving one after another; takes no room when it has no matches. The
// cards come from many days, so each gives its own.
Column {
    id: list

    required property AppModel model
    property string title
    // A match list model: one of the model's lists, or a MatchListModel over a page's matches.
    required property RecordListModel rows
    property bool counted: true

    visible: rows.count > 0
    spacing: Theme.rowSpacing

    SectionHeading {
        width: parent.width
        title: list.title
        note: !list.counted ? "" : list.rows.count === 1 ? "1 match" : list.rows.count + " matches"
    }
    ArrivalGate {
        id: arrival
        rows: list.rows
    }
    Repeater {
        model: list.rows
        delegate: MatchCard {
            id: listedCard
            required property int index
            width: list.width
            model: list.model
            dated: true
            transform: AppearAnimation {
                target: listedCard
                arriving: arrival.open
                delay: 30 * Math.min(listedCard.index, 8)
            }
        }
    }
}
