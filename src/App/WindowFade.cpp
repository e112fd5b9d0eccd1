#include "WindowFade.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

QObject &fadedPart(QWindow &window)
{
    if (QGuiApplication::platformName().startsWith(QLatin1StringView("wayland"))) {
        if (auto *quick = qobject_cast<QQuickWindow *>(&window))
            return *quick->contentItem();
    }
    return window;
}

} // namespace

WindowFade::WindowFade(QWindow &window) : m_target(fadedPart(window)), m_animation(&m_target, "opacity") {}

void WindowFade::setOpacity(double opacity)
{
    m_animation.stop();
    QObject::disconnect(m_finished);
    m_target.setProperty("opacity", opacity);
}

void WindowFade::fadeTo(double opacity, std::chrono::milliseconds duration, QEasingCurve::Type easing,
                        std::function<void()> then)
{
    m_animation.stop();
    QObject::disconnect(m_finished);
    m_animation.setStartValue(m_target.property("opacity"));
    m_animation.setEndValue(opacity);
    m_animation.setDuration(int(duration.count()));
    m_animation.setEasingCurve(easing);
    if (then)
        m_finished =
            QObject::connect(&m_animation, &QPropertyAnimation::finished, &m_target, std::move(then));
    m_animation.start();
}
