#pragma once

#include <chrono>

#include "TrayDBusTypes.h"
#include "TrayItem.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>

class DBusMenuExporter;

// The tray item spoken over D-Bus as a freedesktop StatusNotifierItem, with the Ayatana label extension
// carrying the score next to the icon, and its menu served as com.canonical.dbusmenu at /MenuBar. It
// registers with org.kde.StatusNotifierWatcher, and again whenever a watcher appears or another one takes
// over. For hosts that show no label, the live score can be drawn into the icon instead.
//
// This object is itself exported at /StatusNotifierItem; only its scriptable members reach the bus.
class StatusNotifierTrayItem : public TrayItem {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_CLASSINFO("D-Bus Introspection",
                "<interface name=\"org.kde.StatusNotifierItem\">\n"
                "  <property name=\"Category\" type=\"s\" access=\"read\"/>\n"
                "  <property name=\"Id\" type=\"s\" access=\"read\"/>\n"
                "  <property name=\"Title\" type=\"s\" access=\"read\"/>\n"
                "  <property name=\"Status\" type=\"s\" access=\"read\"/>\n"
                "  <property name=\"WindowId\" type=\"i\" access=\"read\"/>\n"
                "  <property name=\"IconName\" type=\"s\" access=\"read\"/>\n"
                "  <property name=\"IconPixmap\" type=\"a(iiay)\" access=\"read\"/>\n"
                "  <property name=\"ToolTip\" type=\"(sa(iiay)ss)\" access=\"read\"/>\n"
                "  <property name=\"ItemIsMenu\" type=\"b\" access=\"read\"/>\n"
                "  <property name=\"Menu\" type=\"o\" access=\"read\"/>\n"
                "  <property name=\"XAyatanaLabel\" type=\"s\" access=\"read\"/>\n"
                "  <property name=\"XAyatanaLabelGuide\" type=\"s\" access=\"read\"/>\n"
                "  <method name=\"Activate\">\n"
                "    <arg name=\"x\" type=\"i\" direction=\"in\"/>\n"
                "    <arg name=\"y\" type=\"i\" direction=\"in\"/>\n"
                "  </method>\n"
                "  <method name=\"SecondaryActivate\">\n"
                "    <arg name=\"x\" type=\"i\" direction=\"in\"/>\n"
                "    <arg name=\"y\" type=\"i\" direction=\"in\"/>\n"
                "  </method>\n"
                "  <method name=\"ContextMenu\">\n"
                "    <arg name=\"x\" type=\"i\" direction=\"in\"/>\n"
                "    <arg name=\"y\" type=\"i\" direction=\"in\"/>\n"
                "  </method>\n"
                "  <signal name=\"NewToolTip\"/>\n"
                "  <signal name=\"XAyatanaNewLabel\">\n"
                "    <arg name=\"label\" type=\"s\"/>\n"
                "    <arg name=\"guide\" type=\"s\"/>\n"
                "  </signal>\n"
                "</interface>\n")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ itemTitle)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(StatusNotifierIconPixmaps IconPixmap READ iconPixmap)
    Q_PROPERTY(StatusNotifierToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)
    Q_PROPERTY(QString XAyatanaLabel READ label)
    Q_PROPERTY(QString XAyatanaLabelGuide READ labelGuide)

public:
    // How often, and how far apart, a watcher that refused the registration is asked again.
    static constexpr int registrationAttempts = 20;
    static constexpr std::chrono::milliseconds registrationRetryInterval{250};

    explicit StatusNotifierTrayItem(QObject *parent = nullptr);
    ~StatusNotifierTrayItem() override;

    void setTitle(const QString &title) override;
    void setLiveMatches(const QStringList &lines) override;
    void setScoreInIcon(bool drawn) override;
    bool hostShowsLabels() const override { return m_hostShowsLabels; }
    // Whether a StatusNotifierWatcher is on the bus.
    bool hasHost() const { return !m_watcherOwner.isEmpty(); }

    // The well-known name this item owns on the session bus.
    QString serviceName() const { return m_serviceName; }

    QString category() const { return QStringLiteral("ApplicationStatus"); }
    QString id() const { return QStringLiteral("pitchlark"); }
    QString itemTitle() const { return QStringLiteral("Pitchlark"); }
    QString status() const { return QStringLiteral("Active"); }
    int windowId() const { return 0; }
    QString iconName() const;
    StatusNotifierIconPixmaps iconPixmap() const;
    StatusNotifierToolTip toolTip() const;
    bool itemIsMenu() const { return false; }
    QDBusObjectPath menu() const;
    QString label() const { return m_title; }
    QString labelGuide() const;

public slots:
    Q_SCRIPTABLE void Activate(int x, int y);
    Q_SCRIPTABLE void SecondaryActivate(int x, int y);
    // The host shows the menu itself from the Menu property.
    Q_SCRIPTABLE void ContextMenu(int, int) {}

signals:
    Q_SCRIPTABLE void NewIcon();
    Q_SCRIPTABLE void NewToolTip();
    Q_SCRIPTABLE void XAyatanaNewLabel(const QString &label, const QString &guide);

private:
    void onWatcherOwnerChanged(const QString &newOwner);
    bool showsScore() const { return m_scoreInIcon && !m_title.isEmpty(); }
    void registerWithWatcher();
    void askWatcher(int attempt);

    QDBusConnection m_bus;
    QString m_serviceName;
    QDBusServiceWatcher m_watcherMonitor;
    DBusMenuExporter *m_menu;
    StatusNotifierIconPixmaps m_iconPixmap;
    QString m_watcherOwner;
    bool m_hostShowsLabels = false;
    bool m_scoreInIcon = false;
    QString m_title;
    QStringList m_liveMatches;
};
