import QtQuick
import Qt5Compat.GraphicalEffects
import Pitchlark.DesignSystem

// A frosted card: a white surface as opaque as the user's setting, round corners, and a hairline
// outline that is bright at the top and fades towards the bottom, as light catches the edge of glass.
Item {
    id: card

    property real surfaceOpacity: 0.62
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
    Rectangle {
        id: outlineShade
        anchors.fill: parent
        visible: false
        gradient: Gradient {
            GradientStop { position: 0; color: Theme.cardStrokeTop }
            GradientStop { position: 1; color: Theme.cardStrokeBottom }
        }
    }
    Rectangle {
        id: outlineShape
        anchors.fill: parent
        visible: false
        radius: Theme.cardRadius
        color: "transparent"
        border.width: 1
    }
    OpacityMask {
        anchors.fill: parent
        source: outlineShade
        maskSource: outlineShape
    }
    Item {
        id: body
        anchors { fill: parent; margins: card.padding }
    }
}
