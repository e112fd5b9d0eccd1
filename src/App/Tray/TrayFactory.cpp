#include "TrayFactory.h"

#include "StatusNotifierTrayItem.h"
#include "SystemTrayFallbackItem.h"

#include <QApplication>
#include <QDBusConnectionInterface>

std::unique_ptr<TrayItem> createTrayItem(QObject *parent)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected() &&
        bus.interface()->isServiceRegistered(QStringLiteral("org.kde.StatusNotifierWatcher")))
        return std::make_unique<StatusNotifierTrayItem>(parent);
    // QSystemTrayIcon's menu is a widget, which needs a QApplication.
    if (qobject_cast<QApplication *>(QCoreApplication::instance()) &&
        QSystemTrayIcon::isSystemTrayAvailable())
        return std::make_unique<SystemTrayFallbackItem>(parent);
    return nullptr;
}
