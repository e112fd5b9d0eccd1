pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.Features

// The whole panel: the section page with its header, the detail pages pushed over it, the banner, and
// the update dialog over everything while a check the user started is under way.
Item {
    id: root

    required property AppModel model
    property UpdateController updates
    // Pages the row is shifted by: one per route on the stack.
    readonly property int navDepth: model.navigation.detailStack.length
    readonly property bool updateDialogShown: updates !== null && updates.isUserInitiated
                                              && updates.phase.kindName !== "idle"
    readonly property int updateDialogInset: 20

    clip: true

    Row {
        id: pages
        height: root.height
        x: -root.navDepth * root.width
        // Set at once when first shown; animated on every later push and pop.
        Behavior on x {
            enabled: pages.animated
            NumberAnimation { duration: 400; easing.type: Easing.OutCubic }
        }
        property bool animated: false
        Component.onCompleted: animated = true

        SectionPage {
            width: root.width
            height: root.height
            model: root.model
        }
        Repeater {
            model: root.model.navigation.renderedRoutes
            delegate: DetailRouter {
                required property var modelData
                width: root.width
                height: root.height
                model: root.model
                updates: root.updates
                route: modelData
            }
        }
    }

    Item {
        id: bannerSlot
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: 10 }
        height: banner.implicitHeight
        readonly property var current: root.model.activeBanner
        // The last banner shown stays drawn while it slides away.
        property var shown
        onCurrentChanged: if (current) shown = current

        BannerView {
            id: banner
            width: parent.width
            banner: bannerSlot.shown
            y: bannerSlot.current ? 0 : -height - 10
            opacity: bannerSlot.current ? 1 : 0
            visible: opacity > 0
            Behavior on y { NumberAnimation { duration: 200; easing.type: Easing.InOutQuad } }
            Behavior on opacity { NumberAnimation { duration: 200; easing.type: Easing.InOutQuad } }
            onDismiss: root.model.dismissBanner()
        }
    }

    Loader {
        id: updateDialog
        anchors.fill: parent
        anchors.margins: root.updateDialogInset
        z: 20
        // Built only while shown or fading, so an idle panel carries none of it.
        active: root.updates !== null && (root.updateDialogShown || opacity > 0)
        enabled: root.updateDialogShown
        opacity: root.updateDialogShown ? 1 : 0
        visible: opacity > 0
        Behavior on opacity { NumberAnimation { duration: 200; easing.type: Easing.InOutQuad } }
        // By its file rather than an inline component, which a Loader cannot build in a bound file.
        Component.onCompleted: setSource("Updates/UpdateModalView.qml",
                                         { controller: root.updates, bleed: root.updateDialogInset })
    }
}
