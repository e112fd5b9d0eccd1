// Cold start to tray registration, measured twice against the real status-notifier-watcher: the whole
// program, from starting its process to the watcher announcing its item, on a profile whose response
// cache an earlier run has filled; and the tray item alone, in-process. The benchmark runs its own
// session bus and watcher, so it never puts an item on the desktop's tray.

#include "FeedServer.h"
#include "StatusNotifierTrayItem.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

constexpr int rounds = 30;
constexpr int programRounds = 7;
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

bool cacheFilled(const QString &cacheFolder)
{
    QDirIterator files(cacheFolder, {QStringLiteral("*.json")}, QDir::Files, QDirIterator::Subdirectories);
    return files.hasNext();
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

// Starts the program on its own profile, talking to a replay on this process's loopback port. Gives the
// milliseconds of each round after the first, which only fills the cache; empty on failure.
QList<double> programStartToRegistration(WatcherAnnouncements &announcements)
{
    FeedServer feed(Tournament::bundled(),
                    TournamentClock::frozen(QDateTime(QDate(2026, 6, 27), QTime(21, 30), QTimeZone::utc())));
    const quint16 port = feed.listen();
    QTemporaryDir profile;
    if (port == 0 || !profile.isValid())
        return {};
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), profile.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), profile.filePath(QStringLiteral("cache")));
    environment.insert(QStringLiteral("WC_API_BASE_URL"), QStringLiteral("http://127.0.0.1:%1").arg(port));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));

    QList<double> milliseconds;
    for (int round = 0; round <= programRounds; ++round) {
        QProcess program;
        program.setProcessEnvironment(environment);
        QElapsedTimer timer;
        timer.start();
        program.start(QStringLiteral(PITCHLARK_BINARY), {});
        if (!program.waitForStarted())
            return {};
        const QString name = QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(program.processId());
        if (!announcements.waitFor([&] { return announcements.registered.contains(name); }))
            return {};
        if (round > 0)
            milliseconds.append(double(timer.nsecsElapsed()) / 1e6);
        else if (!QTest::qWaitFor([&] { return cacheFilled(profile.filePath(QStringLiteral("cache"))); },
                                  10'000))
            return {};
        program.terminate();
        program.waitForFinished();
        announcements.waitFor([&] { return announcements.unregistered.contains(name); });
    }
    return milliseconds;
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

    const QList<double> programMilliseconds = programStartToRegistration(announcements);
    if (programMilliseconds.isEmpty()) {
        std::fprintf(stderr, "bench_tray: the program never registered its tray item\n");
        return 1;
    }
    std::printf(
        "program started to watcher registration, warm cache (%d rounds): median %.1f ms, max %.1f ms\n",
        programRounds, median(programMilliseconds),
        *std::max_element(programMilliseconds.cbegin(), programMilliseconds.cend()));

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

    std::printf("tray item constructed to watcher registration (%d rounds): first %.2f ms, median %.2f ms, "
                "max %.2f ms\n",
                rounds, milliseconds.constFirst(), median(milliseconds),
                *std::max_element(milliseconds.cbegin(), milliseconds.cend()));
    return 0;
}

#include "TrayBenchmark.moc"
