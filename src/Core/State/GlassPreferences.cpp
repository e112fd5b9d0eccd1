#include "GlassPreferences.h"

#include "SettingsKeys.h"
#include "SettingsStore.h"

GlassPreferences::GlassPreferences(SettingsStore &settings,
                                   std::function<void(double hue, double strength)> applyTint,
                                   QObject *parent)
    : QObject(parent), m_settings(settings),
      m_applyTint(applyTint ? std::move(applyTint) : [](double, double) {})
{
    // Not restarted by each move, so a drag writes settings.json at most four times a second.
    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(saveDelay);
    connect(&m_saveTimer, &QTimer::timeout, this, [this] { m_settings.saveKept(); });
    m_blur = m_settings.real(SettingsKeys::glassBlur).value_or(defaultBlur);
    m_tintHue = m_settings.real(SettingsKeys::glassTintHue).value_or(defaultTintHue);
    m_tint = m_settings.real(SettingsKeys::glassTint).value_or(defaultTint);
    m_grain = m_settings.real(SettingsKeys::glassGrain).value_or(defaultGrain);
    m_surfaceOpacity = m_settings.real(SettingsKeys::surfaceOpacity).value_or(defaultSurfaceOpacity);
    m_applyTint(m_tintHue, m_tint);
}

GlassPreferences::~GlassPreferences()
{
    save();
}

void GlassPreferences::store(const QString &key, double value, bool callsGlassChange, bool retints)
{
    m_settings.setLater(key, value);
    if (!m_saveTimer.isActive())
        m_saveTimer.start();
    if (callsGlassChange && onGlassChange)
        onGlassChange();
    if (retints)
        m_applyTint(m_tintHue, m_tint);
}

void GlassPreferences::setBlur(double value)
{
    m_blur = value;
    emit blurChanged();
    store(SettingsKeys::glassBlur, value, true, false);
}

void GlassPreferences::setTintHue(double value)
{
    m_tintHue = value;
    emit tintHueChanged();
    store(SettingsKeys::glassTintHue, value, true, true);
}

void GlassPreferences::setTint(double value)
{
    m_tint = value;
    emit tintChanged();
    store(SettingsKeys::glassTint, value, true, true);
}

void GlassPreferences::setGrain(double value)
{
    m_grain = value;
    emit grainChanged();
    store(SettingsKeys::glassGrain, value, true, false);
}

void GlassPreferences::setSurfaceOpacity(double value)
{
    m_surfaceOpacity = value;
    emit surfaceOpacityChanged();
    store(SettingsKeys::surfaceOpacity, value, false, false);
}

void GlassPreferences::setFloatingCards(bool enabled)
{
    m_floatingCards = enabled;
    emit floatingCardsChanged();
    m_settings.set(SettingsKeys::floatingCards, enabled);
    if (onGlassChange)
        onGlassChange();
}

void GlassPreferences::resetDefaults()
{
    setBlur(defaultBlur);
    setTintHue(defaultTintHue);
    setTint(defaultTint);
    setGrain(defaultGrain);
    setSurfaceOpacity(defaultSurfaceOpacity);
    save();
}

void GlassPreferences::save()
{
    m_saveTimer.stop();
    m_settings.saveKept();
}
