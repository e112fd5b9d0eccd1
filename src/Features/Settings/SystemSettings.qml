import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// Starting with the session, updates of the program, and where its data comes from.
SettingsSection {
    id: section

    property UpdateController updates
    readonly property bool canCheck: updates !== null && updates.canCheckForUpdates
    readonly property string unavailableReason: updates === null ? "Updates are not available in this build."
                                                                 : updates.unavailableReason
    readonly property date cachedAt: model.cachedAt
    readonly property bool hasCache: cachedAt instanceof Date && !isNaN(cachedAt.getTime())

    title: "System"

    SwitchRow {
        width: parent.width
        controlName: "startAtLogin"
        title: "Start at login"
        detail: section.model.startAtLogin.statusMessage
        checked: section.model.startAtLogin.enabled
        onToggled: checked => section.model.startAtLogin.update(checked)
    }
    Item {
        width: parent.width
        height: Math.max(checkLabel.implicitHeight, checkButton.implicitHeight)
        RowLabel {
            id: checkLabel
            objectName: "updatesNote"
            anchors { left: parent.left; right: checkButton.left; rightMargin: 12; verticalCenter: parent.verticalCenter }
            title: "Updates"
            detail: section.canCheck ? "" : section.unavailableReason
        }
        CapsuleButton {
            id: checkButton
            objectName: "checkForUpdates"
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            enabled: section.canCheck
            text: "Check for Updates"
            onClicked: section.updates.checkForUpdates()
        }
    }
    InfoRow {
        width: parent.width
        objectName: "version"
        title: "Version"
        value: Qt.application.version
    }
    InfoRow {
        width: parent.width
        objectName: "dataService"
        title: "Data service"
        value: section.model.dataServiceURL()
    }
    InfoRow {
        width: parent.width
        objectName: "cachedData"
        title: "Cached data"
        value: section.hasCache ? section.cachedAt.toLocaleString(Qt.locale(), Locale.ShortFormat) : "None yet"
    }
}
