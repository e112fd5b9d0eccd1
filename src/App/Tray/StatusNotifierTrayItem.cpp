#include "StatusNotifierTrayItem.h"

#include "DBusMenuExporter.h"
#include "LabelHosts.h"
#include "ScoreIcon.h"
#include "StatusIcon.h"
#include "TrayMenu.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QTimer>
#include <QtEndian>

#include <atomic>

namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString itemPath = QStringLiteral("/StatusNotifierItem");
const QString menuPath = QStringLiteral("/MenuBar");

// One name per item, so a second item in the same process (tests, or an item rebuilt after a restart of
// the desktop) never collides with the first.
QString nextServiceName()
{
    static std::atomic<int> counter{0};
    return QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
        .arg(QCoreApplication::applicationPid())
        .arg(++counter);
}

StatusNotifierIconPixmap networkOrderPixmap(const QImage &image)
{
    StatusNotifierIconPixmap pixmap{image.width(), image.height(), {}};
    pixmap.argb.resize(qsizetype(image.width()) * image.height() * 4);
    auto *out = reinterpret_cast<uchar *>(pixmap.argb.data());
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const quint32 *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x, out += 4)
            qToBigEndian(row[x], out);
    }
    return pixmap;
}

} // namespace

StatusNotifierTrayItem::StatusNotifierTrayItem(QObject *parent)
    : TrayItem(parent), m_bus(QDBusConnection::sessionBus()), m_serviceName(nextServiceName()),
      m_watcherMonitor(watcherService, m_bus, QDBusServiceWatcher::WatchForOwnerChange),
      m_menu(new DBusMenuExporter(*this, this))
{
    registerTrayDBusTypes();
    for (int size : statusIconSizes)
        m_iconPixmap.append(networkOrderPixmap(renderStatusIcon(size)));

    m_bus.registerObject(itemPath, this, QDBusConnection::ExportScriptableContents);
    m_bus.registerObject(menuPath, m_menu, QDBusConnection::ExportAllContents);
    m_bus.registerService(m_serviceName);

    connect(&m_watcherMonitor, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &newOwner) {
                onWatcherOwnerChanged(newOwner);
            });
    if (m_bus.isConnected())
        onWatcherOwnerChanged(m_bus.interface()->serviceOwner(watcherService));
}

StatusNotifierTrayItem::~StatusNotifierTrayItem()
{
    // Dropping the name is what tells the watcher the item is gone.
    m_bus.unregisterService(m_serviceName);
    m_bus.unregisterObject(menuPath);
    m_bus.unregisterObject(itemPath);
}

void StatusNotifierTrayItem::onWatcherOwnerChanged(const QString &newOwner)
{
    m_watcherOwner = newOwner;
    if (hasHost()) {
        m_hostShowsLabels = ::hostShowsLabels(ownerProgram(m_bus, watcherService),
                                              qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
        registerWithWatcher();
    }
    emit hostChanged();
}

void StatusNotifierTrayItem::registerWithWatcher()
{
    askWatcher(0);
}

void StatusNotifierTrayItem::askWatcher(int attempt)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(watcherService, QStringLiteral("/StatusNotifierWatcher"),
                                       watcherService, QStringLiteral("RegisterStatusNotifierItem"));
    call << m_serviceName;
    // The watcher may not be there yet; it is then registered with when it appears, never started for us.
    call.setAutoStartService(false);
    auto *reply = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply, attempt] {
        reply->deleteLater();
        // A watcher that has just taken its name may not serve its object yet: ask again shortly.
        if (reply->isError() && reply->error().type() != QDBusError::ServiceUnknown &&
            attempt + 1 < registrationAttempts)
            QTimer::singleShot(registrationRetryInterval, this, [this, attempt] { askWatcher(attempt + 1); });
    });
}

void StatusNotifierTrayItem::setTitle(const QString &title)
{
    if (title == m_title)
        return;
    const bool scoreWasShown = showsScore();
    m_title = title;
    emit XAyatanaNewLabel(label(), labelGuide());
    if (scoreWasShown || showsScore())
        emit NewIcon();
    emit NewToolTip();
}

void StatusNotifierTrayItem::setScoreInIcon(bool drawn)
{
    if (drawn == m_scoreInIcon)
        return;
    const bool scoreWasShown = showsScore();
    m_scoreInIcon = drawn;
    if (scoreWasShown != showsScore())
        emit NewIcon();
}

void StatusNotifierTrayItem::setLiveMatches(const QStringList &lines)
{
    if (lines == m_liveMatches)
        return;
    m_liveMatches = lines;
    emit NewToolTip();
}

QString StatusNotifierTrayItem::iconName() const
{
    // Hosts prefer a named icon to the pixmaps, so the name goes while the pixmaps carry the score. No
    // host lets an item drop its icon and keep a label, so the plain icon stays beside a label.
    return showsScore() ? QString() : statusIconName();
}

StatusNotifierIconPixmaps StatusNotifierTrayItem::iconPixmap() const
{
    if (!showsScore())
        return m_iconPixmap;
    StatusNotifierIconPixmaps pixmaps;
    for (int size : statusIconSizes)
        pixmaps.append(networkOrderPixmap(renderScoreIcon(m_title, size)));
    return pixmaps;
}

StatusNotifierToolTip StatusNotifierTrayItem::toolTip() const
{
    // Hosts that show no label still get the score here. Hosts render tooltips as markup (KDE as rich
    // text, waybar as Pango), so the texts are escaped to show as written; the label is plain everywhere.
    const QString title = m_title.isEmpty() ? itemTitle() : m_title;
    return {{}, {}, title.toHtmlEscaped(), m_liveMatches.join(QLatin1Char('\n')).toHtmlEscaped()};
}

QDBusObjectPath StatusNotifierTrayItem::menu() const
{
    return QDBusObjectPath(menuPath);
}

QString StatusNotifierTrayItem::labelGuide() const
{
    // The widest score the label is expected to hold, so the host reserves a steady width.
    return QStringLiteral("WWW 10–10 WWW");
}

void StatusNotifierTrayItem::Activate(int x, int y)
{
    runTrayAction(*this, TrayAction::Open, QPoint(x, y));
}

void StatusNotifierTrayItem::SecondaryActivate(int, int)
{
    runTrayAction(*this, TrayAction::Refresh);
}
