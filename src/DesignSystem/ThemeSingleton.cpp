#include "ThemeSingleton.h"

#include "InkTheme.h"
#include "Metrics.h"
#include "Theme.h"

#include <QJSEngine>

ThemeSingleton::ThemeSingleton()
    : m_liveRed(Theme::liveRed), m_qualGreen(Theme::qualGreen), m_playoffAmber(Theme::playoffAmber),
      m_cardStrokeTop(Theme::cardStrokeTop), m_cardStrokeBottom(Theme::cardStrokeBottom),
      m_cardRadius(Metrics::cardRadius), m_cardPadding(Metrics::cardPadding), m_gutter(Metrics::gutter),
      m_rowSpacing(Metrics::rowSpacing)
{}

ThemeSingleton *ThemeSingleton::instance()
{
    static ThemeSingleton *theme = new ThemeSingleton;
    return theme;
}

ThemeSingleton *ThemeSingleton::create(QQmlEngine *, QJSEngine *)
{
    // One theme for the program; QML must not delete it with an engine.
    QJSEngine::setObjectOwnership(instance(), QJSEngine::CppOwnership);
    return instance();
}

void ThemeSingleton::apply(double hue, double strength)
{
    InkTheme::shared().apply(hue, strength);
    emit inksChanged();
}

QColor ThemeSingleton::primary() const
{
    return InkTheme::shared().palette().primary;
}
QColor ThemeSingleton::secondary() const
{
    return InkTheme::shared().palette().secondary;
}
QColor ThemeSingleton::tertiary() const
{
    return InkTheme::shared().palette().tertiary;
}
QColor ThemeSingleton::faint() const
{
    return InkTheme::shared().palette().faint;
}
QColor ThemeSingleton::accent() const
{
    return InkTheme::shared().palette().accent;
}
