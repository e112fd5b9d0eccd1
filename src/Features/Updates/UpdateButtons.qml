import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The answers the update flow offers in its phase: "Later", "Done" or "Dismiss", and "Update" or
// "Relaunch" where there is something to install.
Row {
    id: buttons

    required property UpdateController controller
    readonly property string kind: controller.phase.kindName
    readonly property string primaryTitle: kind === "available" ? "Update"
                                         : kind === "readyToRelaunch" ? "Relaunch" : ""
    readonly property real fontSize: 11.5

    spacing: 6
    visible: primaryTitle.length > 0 || controller.secondaryTitle.length > 0

    CapsuleButton {
        objectName: "updateSecondary"
        visible: buttons.controller.secondaryTitle.length > 0
        text: buttons.controller.secondaryTitle
        kind: "plain"
        fontSize: buttons.fontSize
        onClicked: buttons.controller.dismiss()
    }
    CapsuleButton {
        objectName: "updatePrimary"
        visible: buttons.primaryTitle.length > 0
        text: buttons.primaryTitle
        kind: "prominent"
        fontSize: buttons.fontSize
        onClicked: buttons.controller.primaryAction()
    }
}
