import QtQuick
import Qt5Compat.GraphicalEffects

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
        let inside = item;
        while (inside && inside !== body)
            inside = inside.parent;
        if (!inside)
            return;
        const top = item.mapToItem(body, 0, 0).y;
        const bottom = top + item.height + view.topFade + view.bottomFade;
        if (top < flick.contentY)
            flick.contentY = top;
        else if (bottom > flick.contentY + flick.height)
            flick.contentY = Math.min(bottom - flick.height, Math.max(0, flick.contentHeight - flick.height));
    }

    Connections {
        target: view.Window.window
        function onActiveFocusItemChanged() {
            if (view.Window.activeFocusItem)
                view.reveal(view.Window.activeFocusItem);
        }
    }
    Flickable {
        id: flick
        anchors.fill: parent
        contentWidth: width
        contentHeight: body.childrenRect.height + view.topFade + view.bottomFade
        boundsBehavior: Flickable.StopAtBounds
        // Drawn through the mask but still the item that takes clicks and wheel turns.
        layer.enabled: true
        layer.effect: OpacityMask { maskSource: fade }
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
        gradient: Gradient {
            GradientStop { position: 0; color: "transparent" }
            GradientStop { position: view.topFade / Math.max(1, view.height); color: "black" }
            GradientStop { position: 1 - view.bottomFade / Math.max(1, view.height); color: "black" }
            GradientStop { position: 1; color: "transparent" }
        }
    }
}
