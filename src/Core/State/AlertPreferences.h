#pragma once

#include <QObject>

class SettingsStore;

// Which match alerts the user wants: the master switch for system notifications, the three kinds of
// event, and the banners inside the panel. Each switch is stored as it is flipped.
class AlertPreferences : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool notificationsEnabled READ notificationsEnabled WRITE setNotificationsEnabled NOTIFY
                   notificationsEnabledChanged)
    Q_PROPERTY(
        bool notifyMatchStart READ notifyMatchStart WRITE setNotifyMatchStart NOTIFY notifyMatchStartChanged)
    Q_PROPERTY(bool notifyGoals READ notifyGoals WRITE setNotifyGoals NOTIFY notifyGoalsChanged)
    Q_PROPERTY(bool notifyFullTime READ notifyFullTime WRITE setNotifyFullTime NOTIFY notifyFullTimeChanged)
    Q_PROPERTY(bool inAppBanners READ inAppBanners WRITE setInAppBanners NOTIFY inAppBannersChanged)

public:
    // Loads the stored switches.
    explicit AlertPreferences(SettingsStore &settings, QObject *parent = nullptr);

    bool notificationsEnabled() const { return m_notificationsEnabled; }
    bool notifyMatchStart() const { return m_notifyMatchStart; }
    bool notifyGoals() const { return m_notifyGoals; }
    bool notifyFullTime() const { return m_notifyFullTime; }
    bool inAppBanners() const { return m_inAppBanners; }

    void setNotificationsEnabled(bool enabled);
    void setNotifyMatchStart(bool enabled);
    void setNotifyGoals(bool enabled);
    void setNotifyFullTime(bool enabled);
    void setInAppBanners(bool enabled);

signals:
    void notificationsEnabledChanged();
    void notifyMatchStartChanged();
    void notifyGoalsChanged();
    void notifyFullTimeChanged();
    void inAppBannersChanged();

private:
    void write(bool &member, bool value, const QString &key, void (AlertPreferences::*changed)());

    SettingsStore &m_settings;
    bool m_notificationsEnabled = false;
    bool m_notifyMatchStart = true;
    bool m_notifyGoals = true;
    bool m_notifyFullTime = true;
    bool m_inAppBanners = true;
};
