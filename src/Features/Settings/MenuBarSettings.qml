import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// How often the scores are fetched, and which live match the tray's score follows.
SettingsSection {
    id: section

    readonly property var intervals: [
        { key: "15", title: "15s", accessibleName: "Every 15 seconds" },
        { key: "30", title: "30s", accessibleName: "Every 30 seconds" },
        { key: "60", title: "60s", accessibleName: "Every minute" },
        { key: "300", title: "5m", accessibleName: "Every 5 minutes" }
    ]
    readonly property var modes: [
        { key: "auto", title: "Auto", detail: "Show the first live match" },
        { key: "pinned", title: "Pinned", detail: "Show the match you pinned" },
        { key: "rotate", title: "Rotate", detail: "Cycle all live matches" }
    ]
    readonly property var iconScores: [
        { key: "auto", title: "Automatic", detail: "Drawn into the icon where the tray shows no text" },
        { key: "always", title: "Always", detail: "Drawn into the icon on every tray" },
        { key: "never", title: "Never", detail: "The icon stays plain; hover it for the score" }
    ]
    readonly property var currentMode: modes.find(mode => mode.key === model.menuBar.displayMode) ?? modes[0]

    title: "Menu Bar"

    RowLabel {
        width: parent.width
        title: "Refresh interval"
        detail: "How often live scores are fetched"
    }
    SectionSwitcher {
        objectName: "refreshInterval"
        width: parent.width
        sections: section.intervals
        current: String(section.model.menuBar.refreshInterval)
        onSelected: key => section.model.menuBar.updateRefreshInterval(Number(key))
    }
    RowLabel {
        width: parent.width
        title: "Score shown"
        detail: section.currentMode.detail
    }
    SectionSwitcher {
        objectName: "trayDisplayMode"
        width: parent.width
        sections: section.modes
        current: section.model.menuBar.displayMode
        onSelected: key => section.model.menuBar.updateDisplayMode(key)
    }
    RowLabel {
        width: parent.width
        title: "Score in tray icon"
        detail: (section.iconScores.find(choice => choice.key === section.model.menuBar.iconScore)
                 ?? section.iconScores[0]).detail
    }
    SectionSwitcher {
        objectName: "trayIconScore"
        width: parent.width
        sections: section.iconScores
        current: section.model.menuBar.iconScore
        onSelected: key => section.model.menuBar.updateIconScore(key)
    }
    SwitchRow {
        width: parent.width
        controlName: "hideScores"
        title: "Hide scores"
        detail: "Show which matches are on, never their scores"
        checked: section.model.hideScores
        onToggled: checked => section.model.hideScores = checked
    }
}
