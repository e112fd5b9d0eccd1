#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QVariantMap>

// xdg-desktop-portal serves only sandboxed callers and asks the user through the desktop's own dialogs,
// neither of which exists on a test machine. This stands in for its Notification and Background
// interfaces on the test's private session bus, on a connection of its own, speaking the same messages.
class FakeDesktopPortal : public QDBusVirtualObject {
public:
    enum class BackgroundAnswer { grant, deny, none };

    explicit FakeDesktopPortal(const QString &connectionName = QStringLiteral("fake-portal"))
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName))
    {}

    bool publish()
    {
        return m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"), this) &&
               m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    BackgroundAnswer backgroundAnswer = BackgroundAnswer::grant;
    QList<std::pair<QString, QVariantMap>> notifications;
    QList<QVariantMap> backgroundRequests;

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const QList<QVariant> arguments = message.arguments();
        if (message.member() == QLatin1StringView("AddNotification") && arguments.size() == 2) {
            notifications.append({arguments.at(0).toString(), qdbus_cast<QVariantMap>(arguments.at(1))});
            connection.send(message.createReply());
            return true;
        }
        if (message.member() == QLatin1StringView("RequestBackground") && arguments.size() == 2) {
            const QVariantMap options = qdbus_cast<QVariantMap>(arguments.at(1));
            backgroundRequests.append(options);
            QString sender = message.service().mid(1);
            sender.replace(u'.', u'_');
            const QString handle = QStringLiteral("/org/freedesktop/portal/desktop/request/") + sender +
                                   u'/' + options.value(QStringLiteral("handle_token")).toString();
            connection.send(message.createReply(QVariant::fromValue(QDBusObjectPath(handle))));
            if (backgroundAnswer != BackgroundAnswer::none) {
                const bool granted = backgroundAnswer == BackgroundAnswer::grant;
                QDBusMessage response = QDBusMessage::createSignal(
                    handle, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
                response << uint(granted ? 0 : 1)
                         << QVariantMap{{QStringLiteral("background"), granted},
                                        {QStringLiteral("autostart"),
                                         granted && options.value(QStringLiteral("autostart")).toBool()}};
                connection.send(response);
            }
            return true;
        }
        return false;
    }

    // The user clicks a notification: the portal reports its action and target to the app.
    void invokeAction(const QString &notificationID, const QString &action, const QVariant &target)
    {
        QDBusMessage invoked = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/portal/desktop"),
            QStringLiteral("org.freedesktop.portal.Notification"), QStringLiteral("ActionInvoked"));
        invoked << notificationID << action << QVariantList{target};
        m_bus.send(invoked);
    }

    QString introspect(const QString &) const override { return {}; }

private:
    QDBusConnection m_bus;
};
Q_DECLARE_METATYPE(FakeDesktopPortal::BackgroundAnswer)
