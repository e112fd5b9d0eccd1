import QtQuick
import Pitchlark.DesignSystem

// A named system symbol ("checkmark.circle.fill" and the like) drawn from the panel's own vector
// paths; a name it does not know draws nothing.
Item {
    id: glyph

    property string name
    property color color: Theme.accent
    property color markColor: "white"
    readonly property var symbol: Glyphs.symbols[name] ?? ({ shape: "", filled: false })

    implicitWidth: 16
    implicitHeight: 16

    SvgGlyph {
        anchors.fill: parent
        path: glyph.symbol.shape
        filled: glyph.symbol.filled
        color: glyph.color
    }
    SvgGlyph {
        anchors.fill: parent
        visible: glyph.symbol.mark !== undefined
        path: glyph.symbol.mark ?? ""
        color: glyph.markColor
    }
}
