#pragma once

#include "NotificationSender.h"

#include <QDBusConnection>

#include "Support/Sandbox.h"

// Posts notifications to org.freedesktop.Notifications on the session bus, or, inside a Flatpak
// sandbox, to the notification portal. Calls are asynchronous and their failures ignored.
class FreedesktopNotificationSender : public NotificationSender {
public:
    enum class Route { notificationServer, portal };

    explicit FreedesktopNotificationSender(Route route = insideFlatpak() ? Route::portal
                                                                         : Route::notificationServer,
                                           QDBusConnection bus = QDBusConnection::sessionBus());

    void send(const QString &identifier, const QString &title, const QString &body) override;

    // Notification servers may render body markup, so the three markup characters are escaped.
    static QString escapedBody(const QString &body);

private:
    void sendToNotificationServer(const QString &identifier, const QString &title, const QString &body);
    void sendToPortal(const QString &identifier, const QString &title, const QString &body);

    Route m_route;
    QDBusConnection m_bus;
};
