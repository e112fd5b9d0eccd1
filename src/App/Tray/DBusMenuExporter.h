#pragma once

#include "TrayDBusTypes.h"

#include <QDBusContext>
#include <QObject>

class TrayItem;

// The tray's menu served as com.canonical.dbusmenu: a flat, fixed list under the root item 0, built
// from trayMenuEntries(), whose only changing state is the "Hide Scores" check mark. A "clicked" event
// runs the row's action on the tray item.
class DBusMenuExporter : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_CLASSINFO("D-Bus Introspection", "<interface name=\"com.canonical.dbusmenu\">\n"
                                       "  <property name=\"Version\" type=\"u\" access=\"read\"/>\n"
                                       "  <property name=\"TextDirection\" type=\"s\" access=\"read\"/>\n"
                                       "  <property name=\"Status\" type=\"s\" access=\"read\"/>\n"
                                       "  <property name=\"IconThemePath\" type=\"as\" access=\"read\"/>\n"
                                       "  <method name=\"GetLayout\">\n"
                                       "    <arg name=\"parentId\" type=\"i\" direction=\"in\"/>\n"
                                       "    <arg name=\"recursionDepth\" type=\"i\" direction=\"in\"/>\n"
                                       "    <arg name=\"propertyNames\" type=\"as\" direction=\"in\"/>\n"
                                       "    <arg name=\"revision\" type=\"u\" direction=\"out\"/>\n"
                                       "    <arg name=\"layout\" type=\"(ia{sv}av)\" direction=\"out\"/>\n"
                                       "  </method>\n"
                                       "  <method name=\"GetGroupProperties\">\n"
                                       "    <arg name=\"ids\" type=\"ai\" direction=\"in\"/>\n"
                                       "    <arg name=\"propertyNames\" type=\"as\" direction=\"in\"/>\n"
                                       "    <arg name=\"properties\" type=\"a(ia{sv})\" direction=\"out\"/>\n"
                                       "  </method>\n"
                                       "  <method name=\"GetProperty\">\n"
                                       "    <arg name=\"id\" type=\"i\" direction=\"in\"/>\n"
                                       "    <arg name=\"name\" type=\"s\" direction=\"in\"/>\n"
                                       "    <arg name=\"value\" type=\"v\" direction=\"out\"/>\n"
                                       "  </method>\n"
                                       "  <method name=\"Event\">\n"
                                       "    <arg name=\"id\" type=\"i\" direction=\"in\"/>\n"
                                       "    <arg name=\"eventId\" type=\"s\" direction=\"in\"/>\n"
                                       "    <arg name=\"data\" type=\"v\" direction=\"in\"/>\n"
                                       "    <arg name=\"timestamp\" type=\"u\" direction=\"in\"/>\n"
                                       "  </method>\n"
                                       "  <method name=\"EventGroup\">\n"
                                       "    <arg name=\"events\" type=\"a(isvu)\" direction=\"in\"/>\n"
                                       "    <arg name=\"idErrors\" type=\"ai\" direction=\"out\"/>\n"
                                       "  </method>\n"
                                       "  <method name=\"AboutToShow\">\n"
                                       "    <arg name=\"id\" type=\"i\" direction=\"in\"/>\n"
                                       "    <arg name=\"needUpdate\" type=\"b\" direction=\"out\"/>\n"
                                       "  </method>\n"
                                       "  <method name=\"AboutToShowGroup\">\n"
                                       "    <arg name=\"ids\" type=\"ai\" direction=\"in\"/>\n"
                                       "    <arg name=\"updatesNeeded\" type=\"ai\" direction=\"out\"/>\n"
                                       "    <arg name=\"idErrors\" type=\"ai\" direction=\"out\"/>\n"
                                       "  </method>\n"
                                       "  <signal name=\"LayoutUpdated\">\n"
                                       "    <arg name=\"revision\" type=\"u\"/>\n"
                                       "    <arg name=\"parent\" type=\"i\"/>\n"
                                       "  </signal>\n"
                                       "</interface>\n")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    DBusMenuExporter(TrayItem &tray, QObject *parent);

    uint version() const { return 3; }
    QString textDirection() const { return QStringLiteral("ltr"); }
    QString status() const { return QStringLiteral("normal"); }
    QStringList iconThemePath() const { return {}; }

public slots:
    uint GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                   DBusMenuLayout &layout);
    QList<DBusMenuItemProperties> GetGroupProperties(const QList<int> &ids, const QStringList &propertyNames);
    QDBusVariant GetProperty(int id, const QString &name);
    void Event(int id, const QString &eventId, const QDBusVariant &data, uint timestamp);
    QList<int> EventGroup(const QList<DBusMenuEvent> &events);
    bool AboutToShow(int) { return false; }
    QList<int> AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors);

signals:
    void LayoutUpdated(uint revision, int parent);

private:
    bool handleEvent(int id, const QString &eventId);

    TrayItem &m_tray;
    uint m_revision = 1;
};
