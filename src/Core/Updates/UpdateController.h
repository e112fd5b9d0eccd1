#pragma once

#include "UpdateEngine.h"
#include "UpdatePhase.h"
#include "UpdateUserDriver.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <cstdint>
#include <memory>

// How long "up to date" and an error stay on screen before the flow returns to idle.
struct UpdateDisplayTimes {
    std::chrono::milliseconds upToDate{2200};
    std::chrono::milliseconds error{4000};
};

// The program's update driver: turns every callback of an update engine into one observable
// UpdatePhase, keeps the engine's replies until the user answers, and derives the texts and icon of
// the update toast, the update modal and the settings screen's check button. Main thread only.
class UpdateController final : public QObject, public UpdateUserDriver {
    Q_OBJECT
    Q_PROPERTY(UpdatePhase phase READ phase NOTIFY phaseChanged)
    Q_PROPERTY(bool isUserInitiated READ isUserInitiated NOTIFY isUserInitiatedChanged)
    Q_PROPERTY(QString statusTitle READ statusTitle NOTIFY phaseChanged)
    // The optional texts are empty when absent.
    Q_PROPERTY(QString statusSubtitle READ statusSubtitle NOTIFY phaseChanged)
    Q_PROPERTY(QString iconName READ iconName NOTIFY phaseChanged)
    Q_PROPERTY(QString secondaryTitle READ secondaryTitle NOTIFY phaseChanged)
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)
    // Why this program cannot update itself, for the settings screen; empty when it can.
    Q_PROPERTY(QString unavailableReason READ unavailableReason CONSTANT)

public:
    // Starts the engine with this controller as its driver. An engine that cannot start is dropped,
    // one line saying why is logged, and checks stay disabled for the rest of the run.
    explicit UpdateController(std::unique_ptr<UpdateEngine> engine, UpdateDisplayTimes displayTimes = {},
                              QObject *parent = nullptr);

    UpdatePhase phase() const { return m_phase; }
    bool isUserInitiated() const { return m_isUserInitiated; }
    bool canCheckForUpdates() const;
    QString unavailableReason() const { return m_unavailableReason; }

    QString statusTitle() const;
    QString statusSubtitle() const;
    QString iconName() const;
    QString secondaryTitle() const;

    // The settings screen's "Check for Updates".
    Q_INVOKABLE void checkForUpdates();
    // "Update" while an update is offered, "Relaunch" once it is ready; nothing otherwise.
    Q_INVOKABLE void primaryAction();
    // "Later", "Done", "Dismiss" and closing the modal: declines an offered update and returns to idle.
    Q_INVOKABLE void dismiss();

    void showUpdatePermissionRequest(UpdatePermissionReply reply) override;
    void showUserInitiatedUpdateCheck(UpdateCancellation cancellation) override;
    void showUpdateFound(const AppcastItem &item, const UserUpdateState &state,
                         UpdateChoiceReply reply) override;
    void showUpdateReleaseNotes(const QByteArray &downloadData) override;
    void showUpdateReleaseNotesFailedToDownload(const QString &error) override;
    void showUpdateNotFound(const QString &error, UpdateAcknowledgement acknowledgement) override;
    void showUpdaterError(const QString &error, UpdateAcknowledgement acknowledgement) override;
    void showDownloadInitiated(UpdateCancellation cancellation) override;
    void showDownloadDidReceiveExpectedContentLength(std::uint64_t expectedContentLength) override;
    void showDownloadDidReceiveDataOfLength(std::uint64_t length) override;
    void showDownloadDidStartExtractingUpdate() override;
    void showExtractionReceivedProgress(double progress) override;
    void showReadyToInstallAndRelaunch(UpdateChoiceReply reply) override;
    void showInstallingUpdate(bool applicationTerminated,
                              UpdateCancellation retryTerminatingApplication) override;
    void showUpdateInstalledAndRelaunched(bool relaunched, UpdateAcknowledgement acknowledgement) override;
    void showUpdateInFocus() override;
    void dismissUpdateInstallation() override;

signals:
    // Emitted on every write, also of an equal value: the shell re-decides between toast and modal
    // on each one.
    void phaseChanged();
    void isUserInitiatedChanged();
    void canCheckForUpdatesChanged();

private:
    void setPhase(const UpdatePhase &phase);
    void setUserInitiated(bool userInitiated);
    void returnToIdle();
    // After the wait, returns to idle if the phase still equals expected, then acknowledges.
    void returnToIdleLater(std::chrono::milliseconds wait, const UpdatePhase &expected,
                           UpdateAcknowledgement acknowledgement);

    UpdatePhase m_phase;
    bool m_isUserInitiated = false;
    // Absent when the engine failed to start.
    std::unique_ptr<UpdateEngine> m_engine;
    QString m_unavailableReason;
    UpdateChoiceReply m_updateReply;
    UpdateChoiceReply m_installReply;
    std::uint64_t m_expectedLength = 0;
    std::uint64_t m_receivedLength = 0;
    UpdateDisplayTimes m_displayTimes;
};
