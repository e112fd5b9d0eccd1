#pragma once

#include "NotificationSender.h"

#include <QDBusConnection>
#include <QHash>

#include "Support/Sandbox.h"

// Posts notifications to org.freedesktop.Notifications on the session bus, or, inside a Flatpak
// sandbox, to the notification portal, and turns a click on one into activated(). Calls are
// asynchronous and their failures ignored.
class FreedesktopNotificationSender : public NotificationSender {
    Q_OBJECT

public:
    enum class Route { notificationServer, portal };

    explicit FreedesktopNotificationSender(Route route = insideFlatpak() ? Route::portal
                                                                         : Route::notificationServer,
                                           QDBusConnection bus = QDBusConnection::sessionBus());

    void send(const MatchNotification &notification) override;

    // Notification servers may render body markup, so the three markup characters are escaped.
    static QString escapedBody(const QString &body);
    // The portal's id of a match's notification; the same id replaces the notification.
    static QString portalID(const QString &matchID) { return QStringLiteral("match-") + matchID; }

private slots:
    void serverActionInvoked(uint id, const QString &actionKey);
    void serverNotificationClosed(uint id);
    void portalActionInvoked(const QString &id, const QString &action, const QVariantList &parameter);

private:
    void sendToNotificationServer(const MatchNotification &notification);
    void sendToPortal(const MatchNotification &notification);

    Route m_route;
    QDBusConnection m_bus;
    // The server's id of each match's notification still on show, to replace it and to know its clicks.
    QHash<QString, uint> m_serverIDs;
};
