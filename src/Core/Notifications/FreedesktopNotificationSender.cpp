#include "FreedesktopNotificationSender.h"

#include "Support/AppIdentity.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QVariantMap>

namespace {

const QString serverService = QStringLiteral("org.freedesktop.Notifications");
const QString serverPath = QStringLiteral("/org/freedesktop/Notifications");
const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalInterface = QStringLiteral("org.freedesktop.portal.Notification");
const QString defaultAction = QStringLiteral("default");
// The portal calls the app's action by this name, with the match id as its target.
const QString portalShowMatchAction = QStringLiteral("app.show-match");

// Custom categories take the "x-vendor.class" form; servers may group or style by them.
QString category(BannerState::Kind kind)
{
    switch (kind) {
    case BannerState::Kind::kickoff:
        return QStringLiteral("x-pitchlark.kickoff");
    case BannerState::Kind::goal:
        return QStringLiteral("x-pitchlark.goal");
    case BannerState::Kind::fullTime:
        return QStringLiteral("x-pitchlark.fulltime");
    }
    Q_UNREACHABLE();
    return {};
}

} // namespace

FreedesktopNotificationSender::FreedesktopNotificationSender(Route route, QDBusConnection bus)
    : m_route(route), m_bus(std::move(bus))
{
    if (m_route == Route::portal) {
        m_bus.connect(portalService, portalPath, portalInterface, QStringLiteral("ActionInvoked"), this,
                      SLOT(portalActionInvoked(QString, QString, QVariantList)));
        return;
    }
    m_bus.connect(serverService, serverPath, serverService, QStringLiteral("ActionInvoked"), this,
                  SLOT(serverActionInvoked(uint, QString)));
    m_bus.connect(serverService, serverPath, serverService, QStringLiteral("NotificationClosed"), this,
                  SLOT(serverNotificationClosed(uint)));
}

QString FreedesktopNotificationSender::escapedBody(const QString &body)
{
    QString escaped = body;
    escaped.replace(u'&', QStringLiteral("&amp;"));
    escaped.replace(u'<', QStringLiteral("&lt;"));
    escaped.replace(u'>', QStringLiteral("&gt;"));
    return escaped;
}

void FreedesktopNotificationSender::send(const MatchNotification &notification)
{
    if (m_route == Route::portal)
        sendToPortal(notification);
    else
        sendToNotificationServer(notification);
}

void FreedesktopNotificationSender::sendToNotificationServer(const MatchNotification &notification)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(serverService, serverPath, serverService, QStringLiteral("Notify"));
    const QVariantMap hints{
        {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")},
        {QStringLiteral("desktop-entry"), AppIdentity::appId()},
        {QStringLiteral("category"), category(notification.kind)},
    };
    // The default action is the click on the notification itself; its label is for servers that
    // show it as a button.
    call << QStringLiteral("Pitchlark") << m_serverIDs.value(notification.matchID) << AppIdentity::appId()
         << notification.title << escapedBody(notification.body)
         << QStringList{defaultAction, QStringLiteral("Show match")} << hints << int(-1);
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, matchID = notification.matchID](QDBusPendingCallWatcher *finished) {
                const QDBusPendingReply<uint> reply = *finished;
                if (reply.isValid())
                    m_serverIDs.insert(matchID, reply.value());
                finished->deleteLater();
            });
}

void FreedesktopNotificationSender::sendToPortal(const MatchNotification &notification)
{
    QDBusMessage call = QDBusMessage::createMethodCall(portalService, portalPath, portalInterface,
                                                       QStringLiteral("AddNotification"));
    // The portal shows the body as plain text and takes the app's icon from its desktop file.
    const QVariantMap content{
        {QStringLiteral("title"), notification.title},
        {QStringLiteral("body"), notification.body},
        {QStringLiteral("default-action"), portalShowMatchAction},
        {QStringLiteral("default-action-target"), notification.matchID},
    };
    call << portalID(notification.matchID) << content;
    m_bus.send(call);
}

void FreedesktopNotificationSender::serverActionInvoked(uint id, const QString &actionKey)
{
    // The server tells every client about every click; only ids this sender was given are its own.
    const QString matchID = m_serverIDs.key(id);
    if (actionKey == defaultAction && !matchID.isEmpty())
        emit activated(matchID);
}

void FreedesktopNotificationSender::serverNotificationClosed(uint id)
{
    // Gone from the screen: the match's next alert is a new notification.
    m_serverIDs.remove(m_serverIDs.key(id));
}

void FreedesktopNotificationSender::portalActionInvoked(const QString &id, const QString &action,
                                                        const QVariantList &parameter)
{
    if (action != portalShowMatchAction || !id.startsWith(portalID({})))
        return;
    // The id names the match too, for a portal that sends no target.
    QVariant target = parameter.value(0);
    if (target.metaType() == QMetaType::fromType<QDBusVariant>())
        target = qvariant_cast<QDBusVariant>(target).variant();
    emit activated(target.toString().isEmpty() ? id.mid(portalID({}).size()) : target.toString());
}
