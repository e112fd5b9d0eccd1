// Cold start to tray registration: from constructing the tray item to the real status-notifier-watcher
// announcing it, in-process. The benchmark runs its own session bus and watcher, so it never puts an
// item on the desktop's tray. The first round also pays for loading the icon and the D-Bus types.

#include "StatusNotifierTrayItem.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QProcess>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

constexpr int rounds = 30;
const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");

// Records what the watcher announces.
class WatcherAnnouncements : public QObject {
    Q_OBJECT

public:
    QStringList registered;
    QStringList unregistered;

    // Runs the event loop until condition holds; QTest::qWaitFor would add its 10 ms polling step.
    template<typename Condition>
    bool waitFor(Condition condition)
    {
        QEventLoop loop;
        QTimer::singleShot(5000, &loop, &QEventLoop::quit);
        connect(this, &WatcherAnnouncements::announced, &loop, [&] {
            if (condition())
                loop.quit();
        });
        if (!condition())
            loop.exec();
        return condition();
    }

public slots:
    void itemRegistered(const QString &service)
    {
        registered.append(service);
        emit announced();
    }
    void itemUnregistered(const QString &service)
    {
        unregistered.append(service);
        emit announced();
    }

signals:
    void announced();
};

// Starts a private dbus-daemon and points this process's session bus at it.
bool startPrivateBus(QProcess &daemon)
{
    daemon.start(QStringLiteral("dbus-daemon"), {"--session", "--nofork", "--print-address=1"});
    if (!daemon.waitForStarted() || !daemon.waitForReadyRead(5000))
        return false;
    qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.readLine().trimmed());
    return true;
}

bool startWatcher(QProcess &watcher, const QDBusConnection &bus)
{
    watcher.start(QStringLiteral("status-notifier-watcher"), {});
    return watcher.waitForStarted() &&
           QTest::qWaitFor([&bus] { return bus.interface()->isServiceRegistered(watcherService).value(); },
                           5000);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QProcess daemon;
    if (!startPrivateBus(daemon)) {
        std::fprintf(stderr, "bench_tray: could not start dbus-daemon\n");
        return 1;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    QProcess watcher;
    if (!startWatcher(watcher, bus)) {
        std::fprintf(stderr,
                     "bench_tray: could not start status-notifier-watcher (scripts/install-deps.sh)\n");
        return 1;
    }
    WatcherAnnouncements announcements;
    const QString path = QStringLiteral("/StatusNotifierWatcher");
    bus.connect(watcherService, path, watcherService, QStringLiteral("StatusNotifierItemRegistered"),
                &announcements, SLOT(itemRegistered(QString)));
    bus.connect(watcherService, path, watcherService, QStringLiteral("StatusNotifierItemUnregistered"),
                &announcements, SLOT(itemUnregistered(QString)));

    QList<double> milliseconds;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        auto item = std::make_unique<StatusNotifierTrayItem>();
        const QString name = item->serviceName();
        if (!announcements.waitFor([&] { return announcements.registered.contains(name); })) {
            std::fprintf(stderr, "bench_tray: the watcher never announced the item\n");
            return 1;
        }
        milliseconds.append(double(timer.nsecsElapsed()) / 1e6);
        item.reset();
        if (!announcements.waitFor([&] { return announcements.unregistered.contains(name); })) {
            std::fprintf(stderr, "bench_tray: the watcher never dropped the item\n");
            return 1;
        }
    }
    watcher.kill();
    watcher.waitForFinished();
    daemon.kill();
    daemon.waitForFinished();

    const double first = milliseconds.constFirst();
    std::sort(milliseconds.begin(), milliseconds.end());
    std::printf("tray item constructed to watcher registration (%d rounds): first %.2f ms, median %.2f ms, "
                "max %.2f ms\n",
                rounds, first, milliseconds.at(rounds / 2), milliseconds.constLast());
    return 0;
}

#include "TrayBenchmark.moc"
