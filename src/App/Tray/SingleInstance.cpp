#include "SingleInstance.h"

#include "Support/AppIdentity.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace {

const QString serviceName = AppIdentity::appId();
const QString objectPath = QStringLiteral("/com/pitchlark/Pitchlark");

int report(SingleInstance::ToggleOutcome outcome, QTextStream &errors)
{
    switch (outcome) {
    case SingleInstance::ToggleOutcome::toggled:
        return 0;
    case SingleInstance::ToggleOutcome::notRunning:
        errors << "Pitchlark is not running.\n";
        return 1;
    case SingleInstance::ToggleOutcome::notResponding: {
        const auto pid = QDBusConnection::sessionBus().interface()->servicePid(serviceName);
        errors << "Pitchlark is running but not responding";
        if (pid.isValid())
            errors << " (pid " << pid.value() << ")";
        errors << ".\n";
        return 2;
    }
    }
    Q_UNREACHABLE();
}

} // namespace

SingleInstance::~SingleInstance()
{
    if (!m_claimed)
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.unregisterService(serviceName);
    bus.unregisterObject(objectPath);
}

SingleInstance::ToggleOutcome SingleInstance::askToToggle()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return ToggleOutcome::notRunning;
    QDBusMessage call =
        QDBusMessage::createMethodCall(serviceName, objectPath, serviceName, QStringLiteral("Toggle"));
    call.setAutoStartService(false);
    const QDBusMessage reply = bus.call(call, QDBus::Block, toggleTimeoutMs);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return ToggleOutcome::toggled;
    const QString error = reply.errorName();
    if (error == QLatin1StringView("org.freedesktop.DBus.Error.ServiceUnknown") ||
        error == QLatin1StringView("org.freedesktop.DBus.Error.NameHasNoOwner"))
        return ToggleOutcome::notRunning;
    // A time-out, or an owner that cannot serve the call: either way someone holds the name.
    return ToggleOutcome::notResponding;
}

int SingleInstance::toggleRunningInstance(QTextStream &errors)
{
    return report(askToToggle(), errors);
}

SingleInstance::Claim SingleInstance::claim()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Claim::noBus;
    if (!bus.registerObject(objectPath, this, QDBusConnection::ExportScriptableSlots))
        return Claim::taken;
    // Never queue for the name: a second owner-in-waiting would take over silently later.
    const auto reply =
        bus.interface()->registerService(serviceName, QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    if (!reply.isValid()) {
        bus.unregisterObject(objectPath);
        return Claim::noBus;
    }
    if (reply.value() != QDBusConnectionInterface::ServiceRegistered) {
        bus.unregisterObject(objectPath);
        return Claim::taken;
    }
    m_claimed = true;
    return Claim::owned;
}

std::optional<int> SingleInstance::claimOrHandOver(QTextStream &errors)
{
    // Twice, for an owner that quits between the claim and the toggle.
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (claim() != Claim::taken)
            return std::nullopt;
        const ToggleOutcome outcome = askToToggle();
        if (outcome != ToggleOutcome::notRunning)
            return report(outcome, errors);
    }
    return report(ToggleOutcome::notRunning, errors);
}
