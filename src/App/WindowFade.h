#pragma once

#include <QEasingCurve>
#include <QPropertyAnimation>

#include <chrono>
#include <functional>

class QWindow;

// Fades a window's opacity. A new fade takes over from wherever the running one has got to, and only a
// fade that reaches its end runs what was to follow it. Wayland lets no client set its window's
// opacity, so there a Qt Quick window's content fades instead.
class WindowFade {
public:
    explicit WindowFade(QWindow &window);

    // Sets the opacity at once, stopping any fade.
    void setOpacity(double opacity);
    void fadeTo(double opacity, std::chrono::milliseconds duration, QEasingCurve::Type easing,
                std::function<void()> then = {});

private:
    QObject &m_target;
    QPropertyAnimation m_animation;
    QMetaObject::Connection m_finished;
};
