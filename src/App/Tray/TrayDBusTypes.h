#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariantMap>

// The structures the tray protocols send over D-Bus, marshalled by hand because their signatures are
// fixed by the hosts that read them.

// (iiay): one icon size, ARGB32 in network byte order.
struct StatusNotifierIconPixmap {
    int width = 0;
    int height = 0;
    QByteArray argb;
};
using StatusNotifierIconPixmaps = QList<StatusNotifierIconPixmap>;

// (sa(iiay)ss): icon name, icon, title, description.
struct StatusNotifierToolTip {
    QString iconName;
    StatusNotifierIconPixmaps icon;
    QString title;
    QString description;
};

// (ia{sv}av): a menu item, its properties and its children, each child a variant holding the same.
struct DBusMenuLayout {
    int id = 0;
    QVariantMap properties;
    QList<DBusMenuLayout> children;
};

// (ia{sv}): one item's properties, as GetGroupProperties answers them.
struct DBusMenuItemProperties {
    int id = 0;
    QVariantMap properties;
};

// (isvu): one event of an EventGroup call.
struct DBusMenuEvent {
    int id = 0;
    QString eventId;
    // QtDBus learns a type's signature by marshalling a default value, and an empty variant has none.
    QDBusVariant data{0};
    uint timestamp = 0;
};

// A menu item's key hint, aas: [["Control", "r"]].
using DBusMenuShortcut = QList<QStringList>;

Q_DECLARE_METATYPE(StatusNotifierIconPixmap)
Q_DECLARE_METATYPE(StatusNotifierToolTip)
Q_DECLARE_METATYPE(DBusMenuLayout)
Q_DECLARE_METATYPE(DBusMenuItemProperties)
Q_DECLARE_METATYPE(DBusMenuEvent)

QDBusArgument &operator<<(QDBusArgument &argument, const StatusNotifierIconPixmap &pixmap);
const QDBusArgument &operator>>(const QDBusArgument &argument, StatusNotifierIconPixmap &pixmap);
QDBusArgument &operator<<(QDBusArgument &argument, const StatusNotifierToolTip &toolTip);
const QDBusArgument &operator>>(const QDBusArgument &argument, StatusNotifierToolTip &toolTip);
QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuLayout &layout);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuLayout &layout);
QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuItemProperties &item);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuItemProperties &item);
QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuEvent &event);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuEvent &event);

// Makes the types above known to QtDBus; safe to call more than once. Slots name the lists in full
// (QList<DBusMenuEvent>): QtDBus matches slots by type name and knows no aliases.
void registerTrayDBusTypes();
