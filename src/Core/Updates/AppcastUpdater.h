#pragma once

#include "AppcastItem.h"
#include "UpdateEngine.h"
#include "UpdateUserDriver.h"
#include "UpdateVersion.h"

#include <QNetworkAccessManager>
#include <QPointer>
#include <QTemporaryFile>
#include <QTimer>
#include <QUrl>

#include <QCoro/QCoroTask>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

// The update engine on Linux: reads a Sparkle-format appcast, downloads the newest release next to the
// running AppImage, checks its Ed25519 signature and, on "Relaunch", swaps it in and starts it.
// Programs installed any other way are updated by their package manager, so the engine does not start.
class AppcastUpdater final : public UpdateEngine {
    Q_OBJECT

public:
    struct Options {
        QUrl appcastURL;
        // The raw 32-byte Ed25519 key that release signatures must verify against.
        QByteArray publicKey;
        QString currentVersion;
        // The running AppImage; empty when the program was installed another way.
        QString appImagePath;
        // The settings file that remembers the automatic-check answer and the time of the last check.
        QString settingsPath;
        std::chrono::milliseconds firstBackgroundCheckDelay{std::chrono::minutes(1)};
        std::chrono::milliseconds backgroundCheckInterval{std::chrono::hours(24)};
        std::chrono::milliseconds transferTimeout{std::chrono::seconds(30)};
        // Starts the updated program and quits this one.
        std::function<void(const QString &appImagePath)> relaunch;

        // The program's own: the build's appcast (PITCHLARK_APPCAST_URL overrides it) and key, the
        // application version, $APPIMAGE and pitchlark.conf.
        static Options fromEnvironment();
    };

    // The appcast is not signed, so its announced length is checked against this before anything is
    // downloaded; a release is a few tens of MiB.
    static constexpr qint64 maximumUpdateSize = 512 * 1024 * 1024;
    static constexpr qint64 maximumAppcastSize = 4 * 1024 * 1024;

    explicit AppcastUpdater(Options options, QObject *parent = nullptr);

    std::optional<QString> start(UpdateUserDriver &driver) override;
    bool updatedElsewhere() const override { return m_options.appImagePath.isEmpty(); }
    bool canCheckForUpdates() const override;
    void checkForUpdates() override;

    // Puts a downloaded release that was never relaunched into place, so the next start runs it.
    // Connected to the application's aboutToQuit.
    void installOnQuit();

private:
    struct StagedUpdate {
        AppcastItem item;
        std::unique_ptr<QTemporaryFile> file;
    };

    QCoro::Task<> check(bool userInitiated);
    QCoro::Task<> download(AppcastItem item);
    void offer(const AppcastItem &item, bool userInitiated);
    void offerRelaunch();
    void installAndRelaunch();
    void fail(const QString &message);
    void setBusy(bool busy);
    QNetworkRequest request(const QUrl &url) const;

    UpdateAcknowledgement endSession();
    void askForAutomaticChecks();
    void enableAutomaticChecks();
    void scheduleBackgroundCheck(std::chrono::milliseconds earliest);
    void recordCheckTime();

    Options m_options;
    std::optional<UpdateVersion> m_currentVersion;
    UpdateUserDriver *m_driver = nullptr;
    // A child rather than a member, so it outlives the guards that its replies' coroutines check.
    QNetworkAccessManager *m_network;
    QTimer m_backgroundCheck;
    bool m_automaticChecks = false;
    // A check, download or installation is under way.
    bool m_busy = false;
    // Tells each reply handed to the driver whether it is still the current one.
    quint64 m_replyGeneration = 0;
    std::optional<StagedUpdate> m_staged;
};
