#pragma once

#include <QEasingCurve>
#include <QPropertyAnimation>

#include <chrono>
#include <functional>

class QWindow;

// Fades a window's opacity. A new fade takes over from wherever the running one has got to, and only a
// fade that reaches its end runs what was to follow it.
class WindowFade {
public:
    explicit WindowFade(QWindow &window);

    void fadeTo(double opacity, std::chrono::milliseconds duration, QEasingCurve::Type easing,
                std::function<void()> then = {});

private:
    QWindow &m_window;
    QPropertyAnimation m_animation;
    QMetaObject::Connection m_finished;
};
