#include "MenuBarPreferences.h"

#include "SettingsKeys.h"
#include "SettingsStore.h"

MenuBarPreferences::MenuBarPreferences(SettingsStore &settings, QObject *parent)
    : QObject(parent), m_settings(settings)
{
    m_pinnedLiveMatchID = m_settings.string(SettingsKeys::pinnedLiveMatchID);
    m_displayMode =
        trayDisplayModeFromRawValue(m_settings.string(SettingsKeys::trayDisplayMode).value_or(QString()))
            .value_or(TrayDisplayMode::automatic);
    m_iconScore =
        trayIconScoreFromRawValue(m_settings.string(SettingsKeys::trayIconScore).value_or(QString()))
            .value_or(TrayIconScore::automatic);
    // 15, 60 and 300 are kept; every other number, and anything that is not a number, means 30 s.
    m_refreshInterval =
        refreshIntervalFromSeconds(m_settings.integer(SettingsKeys::refreshIntervalSeconds).value_or(30))
            .value_or(RefreshInterval::thirty);
}

void MenuBarPreferences::updateDisplayMode(TrayDisplayMode mode)
{
    const bool differs = mode != m_displayMode;
    m_displayMode = mode;
    if (differs)
        emit displayModeChanged();
    // Stored even when equal, over a stored text that loaded as the default.
    m_settings.set(SettingsKeys::trayDisplayMode, rawValue(mode));
}

void MenuBarPreferences::updateDisplayMode(const QString &rawValue)
{
    if (const auto mode = trayDisplayModeFromRawValue(rawValue))
        updateDisplayMode(*mode);
}

void MenuBarPreferences::updateIconScore(const QString &rawValue)
{
    const auto choice = trayIconScoreFromRawValue(rawValue);
    if (!choice || *choice == m_iconScore)
        return;
    m_iconScore = *choice;
    m_settings.set(SettingsKeys::trayIconScore, rawValue);
    emit iconScoreChanged();
}

void MenuBarPreferences::setPinnedLiveMatchID(const std::optional<QString> &matchID)
{
    if (matchID == m_pinnedLiveMatchID)
        return;
    m_pinnedLiveMatchID = matchID;
    emit pinnedLiveMatchIDChanged();
}

void MenuBarPreferences::togglePinnedMatch(const QString &matchID)
{
    if (m_pinnedLiveMatchID == matchID) {
        setPinnedLiveMatchID(std::nullopt);
        m_settings.remove(SettingsKeys::pinnedLiveMatchID);
        // Unpinning falls back to auto only from the pinned mode.
        if (m_displayMode == TrayDisplayMode::pinned)
            updateDisplayMode(TrayDisplayMode::automatic);
        return;
    }
    setPinnedLiveMatchID(matchID);
    m_settings.set(SettingsKeys::pinnedLiveMatchID, matchID);
    updateDisplayMode(TrayDisplayMode::pinned);
}

void MenuBarPreferences::updateRefreshInterval(RefreshInterval interval)
{
    if (interval == m_refreshInterval)
        return;
    m_refreshInterval = interval;
    emit refreshIntervalChanged();
    m_settings.set(SettingsKeys::refreshIntervalSeconds, qint64(seconds(interval)));
}

void MenuBarPreferences::updateRefreshInterval(int seconds)
{
    if (const auto interval = refreshIntervalFromSeconds(seconds))
        updateRefreshInterval(*interval);
}
