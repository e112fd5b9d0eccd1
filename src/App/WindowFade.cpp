#include "WindowFade.h"

#include <QWindow>

WindowFade::WindowFade(QWindow &window) : m_window(window), m_animation(&window, "opacity") {}

void WindowFade::fadeTo(double opacity, std::chrono::milliseconds duration, QEasingCurve::Type easing,
                        std::function<void()> then)
{
    m_animation.stop();
    QObject::disconnect(m_finished);
    m_animation.setStartValue(m_window.opacity());
    m_animation.setEndValue(opacity);
    m_animation.setDuration(int(duration.count()));
    m_animation.setEasingCurve(easing);
    if (then)
        m_finished =
            QObject::connect(&m_animation, &QPropertyAnimation::finished, &m_window, std::move(then));
    m_animation.start();
}
