pragma ComponentBehavior: Bound

import QtQuick

// A vertical scroll area whose content fades out at its top and bottom edges instead of being cut off,
// so rows slide softly under the header above it. It scrolls to whatever inside it takes the keyboard
// focus, so that Tab never lands on a control out of sight.
Item {
    id: view

    default property alias content: body.data
    property alias contentY: flick.contentY
    readonly property alias flickable: flick
    property int topFade: 18
    property int bottomFade: 28

    function reveal(item) {
        let ancestor = item;
        while (ancestor && ancestor !== body)
            ancestor = ancestor.parent;
        if (!ancestor)
            return;
        const top = item.mapToItem(flick.contentItem, 0, 0).y;
        const bottom = top + item.height;
        if (top < flick.contentY + view.topFade)
            flick.contentY = Math.max(0, top - view.topFade);
        else if (bottom > flick.contentY + view.height - view.bottomFade)
            flick.contentY = Math.min(flick.contentHeight - view.height, bottom - view.height + view.bottomFade);
    }

    Connections {
        target: view.Window.window
        function onActiveFocusItemChanged() { view.reveal(view.Window.activeFocusItem); }
    }

    Flickable {
        id: flick
        anchors.fill: parent
        contentWidth: width
        contentHeight: body.childrenRect.height + view.topFade + view.bottomFade
        boundsBehavior: Flickable.StopAtBounds
        // Rows scrolled out above the view would otherwise still take the clicks meant for what is there.
        clip: true
        // Drawn through the mask but still the item that takes clicks and wheel turns.
        layer.enabled: true
        layer.effect: AlphaMask { maskSource: fade }
        Item {
            id: body
            y: view.topFade
            width: flick.width
        }
    }
    Rectangle {
        id: fade
        anchors.fill: parent
        visible: false
        layer.enabled: true
        gradient: Gradient {
            GradientStop { position: 0; color: "transparent" }
            GradientStop { position: view.topFade / Math.max(1, view.height); color: "black" }
            GradientStop { position: 1 - view.bottomFade / Math.max(1, view.height); color: "black" }
            GradientStop { position: 1; color: "transparent" }
        }
    }
}
