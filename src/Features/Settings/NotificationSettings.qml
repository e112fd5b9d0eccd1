import QtQuick
import Pitchlark.Features

// Alerts for the followed teams: the master switch, the three kinds, and the banners in the panel.
SettingsSection {
    id: section

    title: "Notifications"

    SwitchRow {
        width: parent.width
        controlName: "notificationsEnabled"
        title: "Match alerts"
        detail: "Desktop notifications for the teams you follow"
        checked: section.model.alerts.notificationsEnabled
        onToggled: checked => section.model.alerts.notificationsEnabled = checked
    }
    // The kinds only matter while alerts are on.
    SwitchRow {
        width: parent.width
        enabled: section.model.alerts.notificationsEnabled
        controlName: "notifyMatchStart"
        title: "Kick-off"
        checked: section.model.alerts.notifyMatchStart
        onToggled: checked => section.model.alerts.notifyMatchStart = checked
    }
    SwitchRow {
        width: parent.width
        enabled: section.model.alerts.notificationsEnabled
        controlName: "notifyGoals"
        title: "Goals"
        checked: section.model.alerts.notifyGoals
        onToggled: checked => section.model.alerts.notifyGoals = checked
    }
    SwitchRow {
        width: parent.width
        enabled: section.model.alerts.notificationsEnabled
        controlName: "notifyFullTime"
        title: "Full time"
        checked: section.model.alerts.notifyFullTime
        onToggled: checked => section.model.alerts.notifyFullTime = checked
    }
    SwitchRow {
        width: parent.width
        controlName: "inAppBanners"
        title: "In-panel banners"
        detail: "Show alerts at the top of the open panel"
        checked: section.model.alerts.inAppBanners
        onToggled: checked => section.model.alerts.inAppBanners = checked
    }
}
