#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSize>

#include <chrono>
#include <memory>

class QQmlEngine;
class QQuickItem;
class QQuickWindow;
class UpdateController;
class WindowFade;

// Owns the small window in the top-right corner of the primary screen that reports an update check
// running in the background. The window is made on the first show and kept for the rest of the run.
class UpdateToastWindowController : public QObject {
    Q_OBJECT

public:
    static constexpr int screenMargin = 8;
    static constexpr std::chrono::milliseconds fadeInDuration{280};
    static constexpr std::chrono::milliseconds fadeOutDuration{220};

    UpdateToastWindowController(QQmlEngine &engine, UpdateController &controller, QObject *parent = nullptr);
    ~UpdateToastWindowController() override;

    // Where a toast of that size goes on a screen whose area without panels and docks is available.
    static QRect toastGeometry(const QRect &available, const QSize &size);

    // Sizes the window to its content and places it; fades it in only when it is not already shown.
    void show();
    // Fades the window out, then hides it.
    void hide();

    // The toast's window; none before the first show.
    QQuickWindow *window() const { return m_window.get(); }
    bool isShown() const { return m_shown; }

signals:
    // The window has just been put on screen, on top of the others.
    void shown();

private:
    void build();
    void fitToContent();

    QQmlEngine &m_engine;
    UpdateController &m_controller;
    std::unique_ptr<QQuickWindow> m_window;
    QPointer<QQuickItem> m_view;
    std::unique_ptr<WindowFade> m_fade;
    bool m_shown = false;
};
