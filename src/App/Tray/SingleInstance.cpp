#include "SingleInstance.h"

#include "Support/AppIdentity.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace {

const QString serviceName = AppIdentity::appId();
const QString objectPath = QStringLiteral("/com/pitchlark/Pitchlark");
// A hung first instance must not keep the second one waiting for the bus's default 25 seconds.
constexpr int toggleTimeoutMs = 3000;

} // namespace

SingleInstance::~SingleInstance()
{
    if (!m_claimed)
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.unregisterService(serviceName);
    bus.unregisterObject(objectPath);
}

bool SingleInstance::toggleRunningInstance()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage call =
        QDBusMessage::createMethodCall(serviceName, objectPath, serviceName, QStringLiteral("Toggle"));
    call.setAutoStartService(false);
    return bus.call(call, QDBus::Block, toggleTimeoutMs).type() == QDBusMessage::ReplyMessage;
}

bool SingleInstance::claim()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.registerObject(objectPath, this, QDBusConnection::ExportScriptableSlots))
        return false;
    // Never queue for the name: a second owner-in-waiting would take over silently later.
    const auto reply =
        bus.interface()->registerService(serviceName, QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    if (!reply.isValid() || reply.value() != QDBusConnectionInterface::ServiceRegistered) {
        bus.unregisterObject(objectPath);
        return false;
    }
    m_claimed = true;
    return true;
}
