#include "AlertPreferences.h"

#include "SettingsKeys.h"
#include "SettingsStore.h"

AlertPreferences::AlertPreferences(SettingsStore &settings, QObject *parent)
    : QObject(parent), m_settings(settings)
{
    m_notificationsEnabled = m_settings.boolean(SettingsKeys::notificationsEnabled).value_or(false);
    m_notifyMatchStart = m_settings.boolean(SettingsKeys::notifyMatchStart).value_or(true);
    m_notifyGoals = m_settings.boolean(SettingsKeys::notifyGoals).value_or(true);
    m_notifyFullTime = m_settings.boolean(SettingsKeys::notifyFullTime).value_or(true);
    m_inAppBanners = m_settings.boolean(SettingsKeys::inAppBanners).value_or(true);
}

void AlertPreferences::write(bool &member, bool value, const QString &key,
                             void (AlertPreferences::*changed)())
{
    const bool differs = member != value;
    member = value;
    if (differs)
        emit(this->*changed)();
    // Stored even when equal: a stored value of the wrong type loaded as the default, and the user's
    // choice should replace it.
    m_settings.set(key, value);
}

void AlertPreferences::setNotificationsEnabled(bool enabled)
{
    // Desktop notification services need no permission request, so switching on only stores the switch.
    write(m_notificationsEnabled, enabled, SettingsKeys::notificationsEnabled,
          &AlertPreferences::notificationsEnabledChanged);
}

void AlertPreferences::setNotifyMatchStart(bool enabled)
{
    write(m_notifyMatchStart, enabled, SettingsKeys::notifyMatchStart,
          &AlertPreferences::notifyMatchStartChanged);
}

void AlertPreferences::setNotifyGoals(bool enabled)
{
    write(m_notifyGoals, enabled, SettingsKeys::notifyGoals, &AlertPreferences::notifyGoalsChanged);
}

void AlertPreferences::setNotifyFullTime(bool enabled)
{
    write(m_notifyFullTime, enabled, SettingsKeys::notifyFullTime, &AlertPreferences::notifyFullTimeChanged);
}

void AlertPreferences::setInAppBanners(bool enabled)
{
    write(m_inAppBanners, enabled, SettingsKeys::inAppBanners, &AlertPreferences::inAppBannersChanged);
}
