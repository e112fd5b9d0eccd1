import QtQuick

// The entrance every card makes: it fades in while rising a few pixels, after a delay that lets a list
// of cards arrive one after another. Used as the card's transform. A card that is not arriving (one a
// poll added to a list already on screen) simply appears.
Translate {
    id: appear

    required property Item target
    property int delay: 0
    property bool arriving: true
    readonly property int rise: 10
    readonly property int duration: 260

    y: arriving ? rise : 0

    readonly property SequentialAnimation entrance: SequentialAnimation {
        PropertyAction { target: appear.target; property: "opacity"; value: 0 }
        // A card leaving its list has no index left to stagger by.
        PauseAnimation { duration: Math.max(0, appear.delay) }
        ParallelAnimation {
            NumberAnimation {
                target: appear.target; property: "opacity"; to: 1
                duration: appear.duration; easing.type: Easing.OutCubic
            }
            NumberAnimation {
                target: appear; property: "y"; to: 0
                duration: appear.duration; easing.type: Easing.OutCubic
            }
        }
    }
    Component.onCompleted: if (arriving) entrance.start()
}
