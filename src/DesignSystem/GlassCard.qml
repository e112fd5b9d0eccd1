import QtQuick
import Pitchlark.DesignSystem

// A frosted card: a white surface as opaque as the user's setting, round corners, and a hairline
// outline that is bright at the top and fades towards the bottom, as light catches the edge of glass.
Item {
    id: card

    // How opaque the white surface is: the user's card opacity, which every screen passes in.
    required property real surfaceOpacity
    property color tint: "transparent"
    property int padding: Theme.cardPadding
    default property alias content: body.data

    implicitHeight: body.childrenRect.height + 2 * padding

    Rectangle {
        anchors.fill: parent
        radius: Theme.cardRadius
        color: Qt.rgba(Theme.cardStrokeTop.r, Theme.cardStrokeTop.g, Theme.cardStrokeTop.b, card.surfaceOpacity)
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.cardRadius
        color: card.tint
    }
    GradientOutline {
        anchors.fill: parent
        radius: Theme.cardRadius
        topColor: Theme.cardStrokeTop
        bottomColor: Theme.cardStrokeBottom
    }
    Item {
        id: body
        anchors { fill: parent; margins: card.padding }
    }
}
