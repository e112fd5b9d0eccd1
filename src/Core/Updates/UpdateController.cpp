#include "UpdateController.h"

#include "UpdatesLogging.h"

#include <QTimer>
#include <QtNumeric>

#include <algorithm>
#include <utility>

namespace {

const QString checkingIcon = QStringLiteral("arrow.triangle.2.circlepath");
const QString downloadIcon = QStringLiteral("arrow.down.circle.fill");

// Takes a stored reply out of its field so that it can be answered only once.
void answerOnce(UpdateChoiceReply &stored, UserUpdateChoice choice)
{
    if (auto reply = std::exchange(stored, nullptr))
        reply(choice);
}

} // namespace

UpdateController::UpdateController(std::unique_ptr<UpdateEngine> engine, UpdateDisplayTimes displayTimes,
                                   QObject *parent)
    : QObject(parent), m_displayTimes(displayTimes)
{
    if (const auto failure = engine->start(*this)) {
        if (engine->updatedElsewhere())
            qCInfo(lcUpdates).noquote() << *failure;
        else
            qCWarning(lcUpdates).noquote() << "Sparkle failed to start: " + *failure;
        m_unavailableReason = *failure;
        return;
    }
    m_engine = std::move(engine);
    connect(m_engine.get(), &UpdateEngine::canCheckForUpdatesChanged, this,
            &UpdateController::canCheckForUpdatesChanged);
}

bool UpdateController::canCheckForUpdates() const
{
    return m_engine && m_engine->canCheckForUpdates();
}

QString UpdateController::statusTitle() const
{
    switch (m_phase.kind()) {
    case UpdatePhase::Kind::idle:
        return QString();
    case UpdatePhase::Kind::checking:
        return QStringLiteral("Checking for updates…");
    case UpdatePhase::Kind::available:
        return QStringLiteral("Update available");
    case UpdatePhase::Kind::downloading:
        return QStringLiteral("Downloading update…");
    case UpdatePhase::Kind::readyToRelaunch:
        return QStringLiteral("Update ready");
    case UpdatePhase::Kind::installing:
        return QStringLiteral("Installing…");
    case UpdatePhase::Kind::upToDate:
        return QStringLiteral("You're up to date");
    case UpdatePhase::Kind::error:
        return QStringLiteral("Update failed");
    }
    Q_UNREACHABLE();
}

QString UpdateController::statusSubtitle() const
{
    switch (m_phase.kind()) {
    case UpdatePhase::Kind::available:
        return QStringLiteral("Pitchlark %1 is ready to install.").arg(m_phase.version());
    case UpdatePhase::Kind::readyToRelaunch:
        return QStringLiteral("Relaunch to finish updating.");
    case UpdatePhase::Kind::upToDate:
        return QStringLiteral("You have the latest version.");
    case UpdatePhase::Kind::error:
        return m_phase.message();
    default:
        return QString();
    }
}

QString UpdateController::iconName() const
{
    switch (m_phase.kind()) {
    case UpdatePhase::Kind::available:
    case UpdatePhase::Kind::readyToRelaunch:
        return downloadIcon;
    case UpdatePhase::Kind::upToDate:
        return QStringLiteral("checkmark.circle.fill");
    case UpdatePhase::Kind::error:
        return QStringLiteral("exclamationmark.triangle.fill");
    default:
        return checkingIcon;
    }
}

QString UpdateController::secondaryTitle() const
{
    switch (m_phase.kind()) {
    case UpdatePhase::Kind::available:
        return QStringLiteral("Later");
    case UpdatePhase::Kind::upToDate:
        return QStringLiteral("Done");
    case UpdatePhase::Kind::error:
        return QStringLiteral("Dismiss");
    default:
        return QString();
    }
}

void UpdateController::checkForUpdates()
{
    if (canCheckForUpdates())
        m_engine->checkForUpdates();
}

void UpdateController::primaryAction()
{
    // The phase is left to the engine's next callback.
    if (m_phase.kind() == UpdatePhase::Kind::available)
        answerOnce(m_updateReply, UserUpdateChoice::install);
    else if (m_phase.kind() == UpdatePhase::Kind::readyToRelaunch)
        answerOnce(m_installReply, UserUpdateChoice::install);
}

void UpdateController::dismiss()
{
    if (m_phase.kind() == UpdatePhase::Kind::available)
        answerOnce(m_updateReply, UserUpdateChoice::dismiss);
    returnToIdle();
}

void UpdateController::showUpdatePermissionRequest(UpdatePermissionReply reply)
{
    if (reply)
        reply(UpdatePermissionResponse{.automaticUpdateChecks = true, .sendSystemProfile = false});
}

void UpdateController::showUserInitiatedUpdateCheck(UpdateCancellation)
{
    setUserInitiated(true);
    setPhase(UpdatePhase::checking());
}

void UpdateController::showUpdateFound(const AppcastItem &item, const UserUpdateState &state,
                                       UpdateChoiceReply reply)
{
    setUserInitiated(state.userInitiated);
    // A reply still stored from an earlier offer is dropped unanswered.
    m_updateReply = std::move(reply);
    setPhase(UpdatePhase::available(item.displayVersionString));
}

void UpdateController::showUpdateReleaseNotes(const QByteArray &) {}

void UpdateController::showUpdateReleaseNotesFailedToDownload(const QString &) {}

void UpdateController::showUpdateNotFound(const QString &, UpdateAcknowledgement acknowledgement)
{
    setPhase(UpdatePhase::upToDate());
    returnToIdleLater(m_displayTimes.upToDate, m_phase, std::move(acknowledgement));
}

void UpdateController::showUpdaterError(const QString &error, UpdateAcknowledgement acknowledgement)
{
    setPhase(UpdatePhase::error(error));
    returnToIdleLater(m_displayTimes.error, m_phase, std::move(acknowledgement));
}

void UpdateController::showDownloadInitiated(UpdateCancellation)
{
    m_expectedLength = 0;
    m_receivedLength = 0;
    setPhase(UpdatePhase::downloading(UpdatePhase::indeterminate));
}

void UpdateController::showDownloadDidReceiveExpectedContentLength(std::uint64_t expectedContentLength)
{
    m_expectedLength = expectedContentLength;
}

void UpdateController::showDownloadDidReceiveDataOfLength(std::uint64_t length)
{
    if (qAddOverflow(m_receivedLength, length, &m_receivedLength))
        qFatal("update download byte count overflowed");
    const double progress = m_expectedLength > 0
                                ? std::min(double(m_receivedLength) / double(m_expectedLength), 1.0)
                                : UpdatePhase::indeterminate;
    setPhase(UpdatePhase::downloading(progress));
}

void UpdateController::showDownloadDidStartExtractingUpdate()
{
    setPhase(UpdatePhase::downloading(UpdatePhase::indeterminate));
}

void UpdateController::showExtractionReceivedProgress(double progress)
{
    setPhase(UpdatePhase::downloading(progress));
}

void UpdateController::showReadyToInstallAndRelaunch(UpdateChoiceReply reply)
{
    m_installReply = std::move(reply);
    setPhase(UpdatePhase::readyToRelaunch());
}

void UpdateController::showInstallingUpdate(bool, UpdateCancellation)
{
    setPhase(UpdatePhase::installing());
}

void UpdateController::showUpdateInstalledAndRelaunched(bool, UpdateAcknowledgement acknowledgement)
{
    if (acknowledgement)
        acknowledgement();
}

void UpdateController::showUpdateInFocus() {}

void UpdateController::dismissUpdateInstallation()
{
    returnToIdle();
}

void UpdateController::setPhase(const UpdatePhase &phase)
{
    m_phase = phase;
    emit phaseChanged();
}

void UpdateController::setUserInitiated(bool userInitiated)
{
    m_isUserInitiated = userInitiated;
    emit isUserInitiatedChanged();
}

void UpdateController::returnToIdle()
{
    setUserInitiated(false);
    setPhase(UpdatePhase::idle());
}

void UpdateController::returnToIdleLater(std::chrono::milliseconds wait, const UpdatePhase &expected,
                                         UpdateAcknowledgement acknowledgement)
{
    QTimer::singleShot(wait, this, [this, expected, acknowledgement = std::move(acknowledgement)] {
        if (m_phase == expected)
            returnToIdle();
        if (acknowledgement)
            acknowledgement();
    });
}
