#include "BackgroundPortalLoginItem.h"

#include "Support/Logging.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");

// The portal answers on a request object whose path it derives from the caller's bus name and the
// token; the answer is subscribed to before the call, so it cannot arrive unheard.
QString requestPath(const QDBusConnection &bus, const QString &token)
{
    QString sender = bus.baseService().mid(1);
    sender.replace(u'.', u'_');
    return portalPath + QStringLiteral("/request/") + sender + u'/' + token;
}

} // namespace

BackgroundPortalLoginItem::BackgroundPortalLoginItem(QString grantPath, QDBusConnection bus)
    : m_grantPath(std::move(grantPath)), m_bus(std::move(bus))
{}

QString BackgroundPortalLoginItem::defaultGrantPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/pitchlark/start-at-login-granted");
}

LoginItem::Status BackgroundPortalLoginItem::status() const
{
    if (!m_requestPath.isEmpty() && m_requestedAutostart)
        return Status::requiresApproval;
    return QFile::exists(m_grantPath) ? Status::enabled : Status::notRegistered;
}

std::optional<QString> BackgroundPortalLoginItem::request(bool autostart)
{
    stopListening();
    const QString token = QStringLiteral("pitchlark_") + QUuid::createUuid().toString(QUuid::Id128);
    m_requestPath = requestPath(m_bus, token);
    m_requestedAutostart = autostart;
    m_bus.connect(portalService, m_requestPath, requestInterface, QStringLiteral("Response"), this,
                  SLOT(onResponse(uint, QVariantMap)));

    QDBusMessage call = QDBusMessage::createMethodCall(portalService, portalPath,
                                                       QStringLiteral("org.freedesktop.portal.Background"),
                                                       QStringLiteral("RequestBackground"));
    const QVariantMap options{
        {QStringLiteral("handle_token"), token},
        {QStringLiteral("reason"),
         QStringLiteral("Show live scores in the tray from the moment you log in.")},
        {QStringLiteral("autostart"), autostart},
        {QStringLiteral("commandline"), QStringList{QStringLiteral("pitchlark")}},
        {QStringLiteral("dbus-activatable"), false},
    };
    call << QString() << options;
    // Asynchronous, so a slow or hung portal never freezes the panel.
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, path = m_requestPath] {
        watcher->deleteLater();
        if (!watcher->isError() || path != m_requestPath)
            return;
        qCWarning(lcSettings).noquote()
            << "The Background portal refused the request:" << watcher->error().message();
        stopListening();
        if (onStatusChange)
            onStatusChange();
    });
    return std::nullopt;
}

void BackgroundPortalLoginItem::stopListening()
{
    if (m_requestPath.isEmpty())
        return;
    m_bus.disconnect(portalService, m_requestPath, requestInterface, QStringLiteral("Response"), this,
                     SLOT(onResponse(uint, QVariantMap)));
    m_requestPath.clear();
}

void BackgroundPortalLoginItem::onResponse(uint response, const QVariantMap &results)
{
    stopListening();
    constexpr uint answered = 0;
    if (response == answered)
        remember(results.value(QStringLiteral("autostart")).toBool());
    else if (m_requestedAutostart)
        // Declined or closed: nothing is registered.
        remember(false);
    if (onStatusChange)
        onStatusChange();
}

void BackgroundPortalLoginItem::remember(bool granted)
{
    if (!granted) {
        QFile::remove(m_grantPath);
        return;
    }
    QDir().mkpath(QFileInfo(m_grantPath).absolutePath());
    QFile grant(m_grantPath);
    if (grant.open(QIODevice::WriteOnly))
        grant.write("autostart granted by the Background portal\n");
}
