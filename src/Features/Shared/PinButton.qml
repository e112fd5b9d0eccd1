import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The pin that puts one match's score in the menu bar, filled while that match is pinned.
GlyphButton {
    id: pin

    required property AppModel model
    required property var match

    readonly property string matchName: match.homeTeam + " v " + match.awayTeam

    path: Glyphs.pin
    rotation: checked ? 0 : 30
    checked: model.menuBar.pinnedLiveMatchID === match.id
    accessibleName: checked ? "Unpin " + matchName + " from the menu bar" : "Pin " + matchName + " to the menu bar"
    onClicked: model.menuBar.togglePinnedMatch(match.id)
}
