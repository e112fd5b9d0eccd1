#pragma once

#include "AppEnums.h"

#include <QObject>

#include <optional>

class SettingsStore;

// What the tray item shows and how fresh it is: which live match its score follows (and the match
// pinned to it), whether the score is drawn into the icon, and how often the scores are fetched. Each
// choice is stored as it is made.
class MenuBarPreferences : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString displayMode READ displayModeName NOTIFY displayModeChanged)
    Q_PROPERTY(QString pinnedLiveMatchID READ pinnedLiveMatchIDText NOTIFY pinnedLiveMatchIDChanged)
    Q_PROPERTY(QString iconScore READ iconScoreName NOTIFY iconScoreChanged)
    Q_PROPERTY(int refreshInterval READ refreshIntervalSeconds NOTIFY refreshIntervalChanged)

public:
    // Loads the stored choices.
    explicit MenuBarPreferences(SettingsStore &settings, QObject *parent = nullptr);

    TrayDisplayMode displayMode() const { return m_displayMode; }
    const std::optional<QString> &pinnedLiveMatchID() const { return m_pinnedLiveMatchID; }
    TrayIconScore iconScore() const { return m_iconScore; }
    RefreshInterval refreshInterval() const { return m_refreshInterval; }

    void updateDisplayMode(TrayDisplayMode mode);
    Q_INVOKABLE void updateDisplayMode(const QString &rawValue);
    Q_INVOKABLE void updateIconScore(const QString &rawValue);
    // Pins the match and shows it; pinning the pinned match again unpins it, and a tray that showed
    // the pinned match goes back to the first live one.
    Q_INVOKABLE void togglePinnedMatch(const QString &matchID);
    void updateRefreshInterval(RefreshInterval interval);
    Q_INVOKABLE void updateRefreshInterval(int seconds);

signals:
    void displayModeChanged();
    void pinnedLiveMatchIDChanged();
    void iconScoreChanged();
    void refreshIntervalChanged();

private:
    QString displayModeName() const { return rawValue(m_displayMode); }
    QString pinnedLiveMatchIDText() const { return m_pinnedLiveMatchID.value_or(QString()); }
    QString iconScoreName() const { return rawValue(m_iconScore); }
    int refreshIntervalSeconds() const { return seconds(m_refreshInterval); }
    void setPinnedLiveMatchID(const std::optional<QString> &matchID);

    SettingsStore &m_settings;
    TrayDisplayMode m_displayMode = TrayDisplayMode::automatic;
    std::optional<QString> m_pinnedLiveMatchID;
    TrayIconScore m_iconScore = TrayIconScore::automatic;
    RefreshInterval m_refreshInterval = RefreshInterval::thirty;
};
