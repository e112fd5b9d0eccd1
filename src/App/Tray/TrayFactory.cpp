#include "TrayFactory.h"

#include "SessionTrayItem.h"
#include "SystemTrayFallbackItem.h"

#include <QApplication>
#include <QDBusConnection>

std::unique_ptr<TrayItem> createTrayItem(QObject *parent)
{
    if (QDBusConnection::sessionBus().isConnected())
        return std::make_unique<SessionTrayItem>(parent);
    // QSystemTrayIcon's menu is a widget, which needs a QApplication.
    if (qobject_cast<QApplication *>(QCoreApplication::instance()) &&
        QSystemTrayIcon::isSystemTrayAvailable())
        return std::make_unique<SystemTrayFallbackItem>(parent);
    return nullptr;
}
