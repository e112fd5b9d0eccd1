import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// One venue in the list: its name and where it stands, its region, and how many it seats. A click
// opens the venue.
Pressable {
    id: row

    required property AppModel model
    required property apiStadium stadium
    readonly property string capacity: stadium.capacityText

    objectName: "stadiumRow-" + stadium.id
    implicitHeight: card.implicitHeight
    focusRadius: Theme.cardRadius
    accessibleName: "Open " + stadium.nameEn
    onClicked: model.navigation.openStadium(stadium.id)

    GlassCard {
        id: card
        anchors.fill: parent
        surfaceOpacity: row.model.glass.surfaceOpacity + (row.hovered ? 0.12 : 0)
        padding: 12

        Item {
            width: parent.width
            height: Math.max(identity.implicitHeight, seats.implicitHeight)
            Text {
                id: symbol
                anchors { left: parent.left; verticalCenter: parent.verticalCenter }
                text: "🏟"
                textFormat: Text.PlainText
                font.pixelSize: 22
            }
            Column {
                id: identity
                anchors { left: symbol.right; leftMargin: 12; right: seats.left; rightMargin: 10 }
                anchors.verticalCenter: parent.verticalCenter
                spacing: 2
                Text {
                    width: parent.width
                    text: row.stadium.nameEn
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    font.pixelSize: 14
                    font.weight: Font.DemiBold
                    color: Theme.primary
                }
                Text {
                    width: parent.width
                    text: row.stadium.place
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    font.pixelSize: 12
                    color: Theme.secondary
                }
                Text {
                    visible: text.length > 0
                    text: row.stadium.region.length > 0 ? row.stadium.region.toUpperCase() + " REGION" : ""
                    textFormat: Text.PlainText
                    font.pixelSize: 10
                    font.weight: Font.DemiBold
                    font.letterSpacing: 0.6
                    color: Theme.tertiary
                }
            }
            Column {
                id: seats
                anchors { right: chevron.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
                visible: row.capacity.length > 0
                Text {
                    objectName: "capacity-" + row.stadium.id
                    anchors.right: parent.right
                    text: row.capacity
                    textFormat: Text.PlainText
                    font.pixelSize: 15
                    font.weight: Font.Bold
                    color: Theme.primary
                }
                Text {
                    anchors.right: parent.right
                    text: "seats"
                    textFormat: Text.PlainText
                    font.pixelSize: 10
                    color: Theme.tertiary
                }
            }
            Text {
                id: chevron
                anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                text: "›"
                textFormat: Text.PlainText
                font.pixelSize: 18
                color: Theme.faint
            }
        }
    }
}
