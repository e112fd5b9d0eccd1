#include "FreedesktopNotificationSender.h"

#include "Support/AppIdentity.h"

#include <QDBusMessage>
#include <QVariantMap>

FreedesktopNotificationSender::FreedesktopNotificationSender(Route route, QDBusConnection bus)
    : m_route(route), m_bus(std::move(bus))
{}

QString FreedesktopNotificationSender::escapedBody(const QString &body)
{
    QString escaped = body;
    escaped.replace(u'&', QStringLiteral("&amp;"));
    escaped.replace(u'<', QStringLiteral("&lt;"));
    escaped.replace(u'>', QStringLiteral("&gt;"));
    return escaped;
}

void FreedesktopNotificationSender::send(const QString &identifier, const QString &title, const QString &body)
{
    if (m_route == Route::portal)
        sendToPortal(identifier, title, body);
    else
        sendToNotificationServer(identifier, title, body);
}

void FreedesktopNotificationSender::sendToNotificationServer(const QString &identifier, const QString &title,
                                                             const QString &body)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    const QVariantMap hints{
        {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")},
        {QStringLiteral("desktop-entry"), AppIdentity::appId()},
        // Kept with the notification so a server or log can tell events apart.
        {QStringLiteral("x-pitchlark-request-id"), identifier},
    };
    // replaces_id 0: every event is a new notification, never a replacement of an earlier one.
    call << QStringLiteral("Pitchlark") << uint(0) << QString() << title << escapedBody(body) << QStringList()
         << hints << int(-1);
    m_bus.send(call);
}

void FreedesktopNotificationSender::sendToPortal(const QString &identifier, const QString &title,
                                                 const QString &body)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Notification"), QStringLiteral("AddNotification"));
    const QVariantMap notification{{QStringLiteral("title"), title}, {QStringLiteral("body"), body}};
    call << identifier << notification;
    m_bus.send(call);
}
