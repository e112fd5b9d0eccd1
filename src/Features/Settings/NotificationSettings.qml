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
        checked: section.model.notificationsEnabled
        onToggled: checked => section.model.notificationsEnabled = checked
    }
    // The kinds only matter while alerts are on.
    SwitchRow {
        width: parent.width
        enabled: section.model.notificationsEnabled
        controlName: "notifyMatchStart"
        title: "Kick-off"
        checked: section.model.notifyMatchStart
        onToggled: checked => section.model.notifyMatchStart = checked
    }
    SwitchRow {
        width: parent.width
        enabled: section.model.notificationsEnabled
        controlName: "notifyGoals"
        title: "Goals"
        checked: section.model.notifyGoals
        onToggled: checked => section.model.notifyGoals = checked
    }
    SwitchRow {
        width: parent.width
        enabled: section.model.notificationsEnabled
        controlName: "notifyFullTime"
        title: "Full time"
        checked: section.model.notifyFullTime
        onToggled: checked => section.model.notifyFullTime = checked
    }
    SwitchRow {
        width: parent.width
        controlName: "inAppBanners"
        title: "In-panel banners"
        detail: "Show alerts at the top of the open panel"
        checked: section.model.inAppBanners
        onToggled: checked => section.model.inAppBanners = checked
    }
}
