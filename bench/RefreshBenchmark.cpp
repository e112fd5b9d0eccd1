// The refresh cycle against a local replay service: how long a cycle takes next to its slowest
// endpoint, how much main-thread CPU one cycle of 104 games costs, and whether memory stays flat over a
// hundred cycles as `pitchlark status --watch` would run them.

#include "FeedServer.h"
#include "ResidentMemory.h"
#include "State/AppModel.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <QCoro/QCoroTask>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

double threadCpuMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir profile;
    qputenv("XDG_CONFIG_HOME", profile.filePath(QStringLiteral("config")).toUtf8());
    qputenv("XDG_CACHE_HOME", profile.filePath(QStringLiteral("cache")).toUtf8());

    // The service gets a thread of its own, so the main thread's CPU time is the model's alone.
    QThread serviceThread;
    serviceThread.start();
    const QDateTime at(QDate(2026, 6, 27), QTime(21, 40), QTimeZone::utc());
    FeedServer *feed = nullptr;
    quint16 port = 0;
    QObject anchor;
    anchor.moveToThread(&serviceThread);
    QMetaObject::invokeMethod(
        &anchor,
        [&] {
            feed = new FeedServer(Tournament::bundled(), TournamentClock::frozen(at));
            port = feed->listen();
        },
        Qt::BlockingQueuedConnection);
    qputenv("WC_API_BASE_URL", QByteArray("http://127.0.0.1:") + QByteArray::number(port));

    const auto setDelays = [&](int games, int groups, int teams, int stadiums) {
        QMetaObject::invokeMethod(
            &anchor,
            [&] {
                feed->faults().reset();
                for (const auto &[endpoint, delay] :
                     {std::pair{"games", games}, std::pair{"groups", groups}, std::pair{"teams", teams},
                      std::pair{"stadiums", stadiums}})
                    feed->faults().apply({{"endpoint", endpoint}, {"delay_ms", delay}});
            },
            Qt::BlockingQueuedConnection);
    };

    APIService api;
    constexpr int slowest = 400;
    QList<double> ratios;
    for (int run = 0; run < 5; ++run) {
        // Every cycle starts from nothing, so all four endpoints are fetched, each with its own delay.
        QDir(profile.filePath(QStringLiteral("cache"))).removeRecursively();
        AppModel::Services services;
        services.api = &api;
        AppModel model(std::move(services));
        setDelays(100, 250, slowest, 50);
        QElapsedTimer wall;
        wall.start();
        QCoro::waitFor(model.fetchAll());
        ratios.append(double(wall.elapsed()) / slowest);
    }
    std::printf("cycle time / slowest endpoint (%d ms): %.3f  (target <= 1.1; median of %lld)\n", slowest,
                median(ratios), qlonglong(ratios.size()));

    setDelays(0, 0, 0, 0);
    AppModel::Services services;
    services.api = &api;
    AppModel model(std::move(services));
    QList<double> cpu;
    long afterFirst = 0;
    long afterTenth = 0;
    constexpr int cycles = 100;
    for (int cycle = 1; cycle <= cycles; ++cycle) {
        const double before = threadCpuMilliseconds();
        QCoro::waitFor(model.fetchAll());
        cpu.append(threadCpuMilliseconds() - before);
        if (cycle == 1)
            afterFirst = residentKilobytes();
        if (cycle == 10)
            afterTenth = residentKilobytes();
    }
    const long afterLast = residentKilobytes();
    std::printf("main-thread CPU per cycle, 104 games: %.2f ms  (median of %d cycles)\n", median(cpu),
                cycles);
    // The first cycles warm the allocator and Qt's caches; what matters is that the curve goes flat.
    std::printf(
        "resident memory after 1 cycle: %ld KiB, after 10: %ld KiB, after %d: %ld KiB  (growth from 10 to "
        "%d: %ld KiB)\n",
        afterFirst, afterTenth, cycles, afterLast, cycles, afterLast - afterTenth);

    QMetaObject::invokeMethod(
        &anchor, [&] { delete feed; }, Qt::BlockingQueuedConnection);
    serviceThread.quit();
    serviceThread.wait();
    return 0;
}
