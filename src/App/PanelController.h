#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>
#include <QQuickWindow>
#include <QRect>
#include <QTimer>
#include <QVariantMap>

#include <chrono>
#include <memory>

#include "GlobalClickMonitor.h"

class AppModel;
class QQmlEngine;
class QQuickWindow;
class QScreen;
class SwayPlacement;
class WindowFade;

// Owns the frosted panel: places it as a full-height column at the right edge of a screen, fades it in
// and out, closes it on a click elsewhere or on Escape, and re-applies the glass when the model's glass
// settings change.
class PanelController : public QObject {
    Q_OBJECT

public:
    static constexpr int panelWidth = 388;
    static constexpr int screenMargin = 12;
    static constexpr std::chrono::milliseconds fadeInDuration{180};
    static constexpr std::chrono::milliseconds fadeOutDuration{140};
    // The click that opened the panel cannot close it.
    static constexpr std::chrono::milliseconds outsideClickGrace{350};
    static constexpr int cornerRadius = 28;
    // A panel left hidden this long gives its scene back; the next show builds it again.
    static constexpr std::chrono::milliseconds releaseAfter{20'000};

    // updates is the program's update controller, for the settings screen and the update modal; absent
    // in tests that need neither.
    PanelController(AppModel &model, QQmlEngine &engine, QObject *updates = nullptr,
                    QObject *parent = nullptr);
    ~PanelController() override;

    // The panel's frame on a screen whose area without panels and docks is available.
    static QRect panelGeometry(const QRect &available);

    // The panel's window, built on first use.
    QQuickWindow *window();
    bool isShown() const { return m_shown; }

    // Shows the panel on the screen holding position, or on the primary screen for a null point.
    void show(const QPoint &position = {});
    void hide();
    // A click on the tray item: opens or closes, and a click that has just closed the panel as a click
    // elsewhere does not open it again.
    void toggle(const QPoint &position = {});
    // Puts the shown panel back on top of the program's other windows.
    void raise();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void build();
    void release();
    // The panel window's own material, as the window takes it at creation and after each change.
    QVariantMap glassProperties() const;
    void applyGlass();
    void onActiveChanged();
    void onPressAnywhere();
    void onGraceEnded();
    void closeFromOutside();
    void shapeForCompositing();

    AppModel &m_model;
    QQmlEngine &m_engine;
    QPointer<QObject> m_updates;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<WindowFade> m_fade;
    std::unique_ptr<SwayPlacement> m_sway;
    QTimer m_releaseTimer;
    QTimer m_graceTimer;
    GlobalClickMonitor m_clicks;
    bool m_shown = false;
    bool m_blurBehind = false;
    QDeadlineTimer m_grace{0};
    QDeadlineTimer m_justClosedFromOutside{0};
};
