#pragma once

#include "State/AppModel.h"
#include "UpdateEngine.h"

#include <QObject>
#include <QPoint>
#include <QProcessEnvironment>
#include <QQmlEngine>

#include <memory>

class PanelController;
class TrayItem;
class UpdateController;
class UpdateToastWindowController;

// The tray application: owns the model, the tray item and the panel for the whole run, mirrors the
// model's title into the tray, routes the tray's requests, and carries the launch-time debug hooks.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    static constexpr int hookAttempts = 41;
    static constexpr std::chrono::milliseconds hookRetryInterval{300};
    static constexpr std::chrono::milliseconds snapshotDelay{700};

    // updateEngine finds and installs the program's updates; none means the appcast updater.
    explicit AppDelegate(AppModel::Services services, std::unique_ptr<UpdateEngine> updateEngine = {},
                         QObject *parent = nullptr);
    ~AppDelegate() override;

    // The launch sequence; the tray item may be absent on a desktop without a tray.
    void launch(std::unique_ptr<TrayItem> tray);

    AppModel &model() { return m_model; }
    PanelController *panel() const { return m_panel.get(); }
    UpdateController &updates() { return *m_updates; }
    UpdateToastWindowController &updateToast() { return *m_updateToast; }
    void togglePanel(const QPoint &position = {});

private:
    void updateStatusTitle();
    void updateTrayIconScore();
    void presentUpdateToast();
    void openDetail(const QString &routeText);
    void setFloatingCards(const QString &value);
    void applyDebugHooks();
    void afterLoad(int attempt);
    void writeSnapshot(const QString &path);

    AppModel m_model;
    QQmlEngine m_engine;
    std::unique_ptr<UpdateController> m_updates;
    std::unique_ptr<TrayItem> m_tray;
    std::unique_ptr<PanelController> m_panel;
    std::unique_ptr<UpdateToastWindowController> m_updateToast;
    const QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};
