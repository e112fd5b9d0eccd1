import QtQuick

// The soft shadow under a raised card: a blurred rounded rectangle, stretched nine-slice so its falloff
// keeps its width around a card of any size, and dropped a little below it.
BorderImage {
    required property Item card
    property real drop: 0
    readonly property int spread: 24

    x: card.x - spread
    y: card.y - spread + drop
    width: card.width + 2 * spread
    height: card.height + 2 * spread
    source: "image://glass/shadow"
    border { left: 44; top: 44; right: 44; bottom: 44 }
}
