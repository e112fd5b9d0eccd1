// The tray application's costs under a real X server, each beside a bare Qt Quick window measured the
// same way as the floor: time from a tray click to the panel's first frame; resident memory at idle with
// the panel never opened and after it has been opened and hidden; CPU time and frames drawn while the
// panel stays open with nothing live and with two matches live; and main-thread CPU per poll. Each
// figure comes from a fresh process.

#include "AppDelegate.h"
#include "DemoProfile.h"
#include "FeedServer.h"
#include "PanelController.h"
#include "ResidentMemory.h"
#include "ThemeSingleton.h"
#include "TrayItem.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QQuickView>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QtQml/QQmlExtensionPlugin>

#include <atomic>
#include <cstdio>
#include <ctime>
#include <sys/resource.h>

Q_IMPORT_QML_PLUGIN(Pitchlark_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_FeaturesPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_AppPlugin)

namespace {

constexpr int settleMilliseconds = 3000;
// Demo instants: the morning after the Panama–England and Croatia–Ghana evening, with nothing live until
// 19:00 (thirteen minutes away at the replay's speed), and half an hour into those two matches.
constexpr const char *quietInstant = "2026-06-28T06:00:00Z";
constexpr const char *liveInstant = "2026-06-27T21:30:00Z";

// How long the panel is watched while open; shorter runs are for trying the benchmark out.
int measuredSeconds()
{
    bool ok = false;
    const int seconds = qEnvironmentVariableIntValue("PITCHLARK_BENCH_SECONDS", &ok);
    return ok && seconds > 0 ? seconds : 60;
}

double milliseconds(const timeval &time)
{
    return double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3;
}

// User and system time of every thread of this process, render and driver threads included.
double processCpuMilliseconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

double threadCpuMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

void after(int milliseconds, const std::function<void()> &step)
{
    QTimer::singleShot(milliseconds, step);
}

void onFirstFrame(QQuickWindow *window, const std::function<void()> &step)
{
    QObject::connect(window, &QQuickWindow::frameSwapped, window, step, Qt::SingleShotConnection);
}

// Calls click, which shows a window, and then gives done the milliseconds until its first frame.
void clickToFirstFrame(const std::function<QQuickWindow *()> &click, const std::function<void(double)> &done)
{
    QElapsedTimer clock;
    clock.start();
    onFirstFrame(click(), [clock, done] { done(double(clock.nsecsElapsed()) / 1e6); });
}

QSize panelSize()
{
    return PanelController::panelGeometry(QGuiApplication::primaryScreen()->availableGeometry()).size();
}

std::unique_ptr<QQuickView> showQml(const QString &qml)
{
    auto view = std::make_unique<QQuickView>();
    view->setSource(
        QUrl(QStringLiteral("data:text/plain,") + QString::fromLatin1(QUrl::toPercentEncoding(qml))));
    view->show();
    return view;
}

// Eight plain cards of the panel's size: what any Qt Quick panel pays to come up.
QString cardsQml()
{
    return QStringLiteral(R"(
import QtQuick
Rectangle {
    width: %1; height: %2; color: "whitesmoke"
    Column {
        x: 12; y: 12; spacing: 10
        Repeater {
            model: 8
            Rectangle {
                required property int index
                width: %1 - 24; height: 88; radius: 16; color: "white"
                Text { x: 16; y: 16; text: "Match " + (index + 1); font.pixelSize: 15 }
            }
        }
    }
})")
        .arg(panelSize().width())
        .arg(panelSize().height());
}

// One dot breathing as a live dot does, in a window of the panel's size: the least a live panel draws.
QString pulsingDotQml()
{
    return QStringLiteral(R"(
import QtQuick
Rectangle {
    width: %1; height: %2; color: "whitesmoke"
    Rectangle {
        x: 24; y: 24; width: 6; height: 6; radius: 3; color: "red"
        SequentialAnimation on opacity {
            loops: Animation.Infinite
            NumberAnimation { from: 1; to: 0.5; duration: 850; easing.type: Easing.InOutQuad }
            NumberAnimation { from: 0.5; to: 1; duration: 850; easing.type: Easing.InOutQuad }
        }
    }
})")
        .arg(panelSize().width())
        .arg(panelSize().height());
}

// The demo's replay service on a thread of its own, at the demo's time: in use the service is remote,
// so neither its main-thread work nor its CPU time may count as the program's.
class RemoteReplay {
public:
    explicit RemoteReplay(const QDateTime &from)
    {
        m_thread.start();
        m_anchor.moveToThread(&m_thread);
        quint16 port = 0;
        run([&] {
            m_feed = std::make_unique<FeedServer>(Tournament::bundled(),
                                                  TournamentClock::running(from, DemoProfile::speed));
            port = m_feed->listen();
        });
        qputenv("WC_API_BASE_URL", QByteArray("http://127.0.0.1:") + QByteArray::number(port));
    }

    ~RemoteReplay()
    {
        run([this] { m_feed.reset(); });
        m_thread.quit();
        m_thread.wait();
    }

    double cpuMilliseconds()
    {
        double spent = 0;
        run([&spent] { spent = threadCpuMilliseconds(); });
        return spent;
    }

private:
    void run(const std::function<void()> &work)
    {
        QMetaObject::invokeMethod(&m_anchor, work, Qt::BlockingQueuedConnection);
    }

    QThread m_thread;
    QObject m_anchor;
    std::unique_ptr<FeedServer> m_feed;
};

// Main-thread CPU from each poll's start to the panel's first frame after it, so that the screens'
// bindings and layout caused by the new data are counted with it.
class PollMeter : public QObject {
public:
    PollMeter(const AppModel &model, QQuickWindow *window)
    {
        connect(&model, &AppModel::isLoadingChanged, this, [this, &model] {
            if (model.isLoading())
                m_start = threadCpuMilliseconds();
            m_awaitingFrame = !model.isLoading() && m_start >= 0;
        });
        // Queued from the render thread, so it runs once the frame's polish on this thread is done.
        connect(window, &QQuickWindow::frameSwapped, this, [this] {
            if (!m_awaitingFrame)
                return;
            m_spent += threadCpuMilliseconds() - m_start;
            ++m_polls;
            m_awaitingFrame = false;
            m_start = -1;
        });
    }

    double meanMilliseconds() const { return m_polls > 0 ? m_spent / m_polls : 0; }
    int polls() const { return m_polls; }

private:
    double m_start = -1;
    bool m_awaitingFrame = false;
    double m_spent = 0;
    int m_polls = 0;
};

struct Watch {
    double cpuPercent;
    int frames;
};

// Watches window for the measured seconds: the process's CPU as a share of one core, less what excluded
// reports for work that is not the program's, and the frames it swapped.
void watch(QQuickWindow *window, const std::function<double()> &excluded,
           const std::function<void(Watch)> &done)
{
    auto frames = std::make_shared<std::atomic<int>>(0);
    // Direct: counted on the render thread, without waking this one.
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window, [frames] { ++*frames; }, Qt::DirectConnection);
    const double startCpu = processCpuMilliseconds() - excluded();
    QElapsedTimer wall;
    wall.start();
    after(measuredSeconds() * 1000, [=] {
        const double spent = processCpuMilliseconds() - excluded() - startCpu;
        done({100 * spent / double(wall.elapsed()), frames->load()});
    });
}

AppModel::Services demoServices(const DemoProfile &demo)
{
    AppModel::Services services;
    services.now = [&demo] { return demo.now(); };
    services.applyTint = [](double hue, double strength) {
        ThemeSingleton::instance()->apply(hue, strength);
    };
    return services;
}

// Opens the panel as a tray click does, once the program has settled after launch.
void clickPanelAfterSettling(AppDelegate &delegate, const std::function<void(double)> &firstFrame)
{
    after(settleMilliseconds, [&delegate, firstFrame] {
        clickToFirstFrame(
            [&delegate] {
                delegate.togglePanel();
                return delegate.panel()->window();
            },
            firstFrame);
    });
}

// A bare Qt Quick window, shown once and hidden: the floor any Qt Quick tray program stands on.
int measureBareMemory(QApplication &app)
{
    const auto view = showQml(QStringLiteral("import QtQuick; Item { width: 388; height: 760 }"));
    onFirstFrame(view.get(), [&] {
        view->hide();
        after(settleMilliseconds, [&] {
            std::printf("%ld\n", residentKilobytes());
            app.quit();
        });
    });
    return app.exec();
}

// The cards window built and shown at the click, as the program's panel is.
int measureBareClick(QApplication &app)
{
    std::unique_ptr<QQuickView> view;
    after(settleMilliseconds, [&] {
        clickToFirstFrame([&] { return (view = showQml(cardsQml())).get(); },
                          [&](double elapsed) {
                              std::printf("%.1f\n", elapsed);
                              app.quit();
                          });
    });
    return app.exec();
}

int measureBareCpu(QApplication &app)
{
    const auto view = showQml(pulsingDotQml());
    onFirstFrame(view.get(), [&] {
        after(settleMilliseconds, [&] {
            watch(
                view.get(), [] { return 0.0; },
                [&](Watch watched) {
                    std::printf("%.3f %d\n", watched.cpuPercent, watched.frames);
                    app.quit();
                });
        });
    });
    return app.exec();
}

int measureProgramMemory(QApplication &app, bool openPanel)
{
    DemoProfile demo;
    if (!demo.activate())
        return 1;
    AppDelegate delegate(demoServices(demo));
    delegate.launch(nullptr);
    if (!openPanel) {
        after(settleMilliseconds, [&] {
            std::printf("%ld\n", residentKilobytes());
            app.quit();
        });
        return app.exec();
    }
    clickPanelAfterSettling(delegate, [&](double elapsed) {
        std::printf("%.1f ", elapsed);
        delegate.panel()->hide();
        after(int(PanelController::releaseAfter.count()) + settleMilliseconds, [&] {
            std::printf("%ld\n", residentKilobytes());
            app.quit();
        });
    });
    return app.exec();
}

// The panel left open at the demo instant the parent chose through the environment.
int measureProgramCpu(QApplication &app)
{
    DemoProfile demo;
    if (!demo.activate())
        return 1;
    RemoteReplay replay(demo.now());
    AppDelegate delegate(demoServices(demo));
    delegate.launch(nullptr);
    std::unique_ptr<PollMeter> meter;
    clickPanelAfterSettling(delegate, [&](double) {
        after(settleMilliseconds, [&] {
            QQuickWindow *window = delegate.panel()->window();
            meter = std::make_unique<PollMeter>(delegate.model(), window);
            watch(
                window, [&] { return replay.cpuMilliseconds(); },
                [&](Watch watched) {
                    std::printf("%.3f %d %lld %.2f %d\n", watched.cpuPercent, watched.frames,
                                qlonglong(delegate.model().liveMatchesCache().size()),
                                meter->meanMilliseconds(), meter->polls());
                    app.quit();
                });
        });
    });
    return app.exec();
}

int runMode(QApplication &app, const QString &mode)
{
    if (mode == QLatin1StringView("bare"))
        return measureBareMemory(app);
    if (mode == QLatin1StringView("bare-click"))
        return measureBareClick(app);
    if (mode == QLatin1StringView("bare-cpu"))
        return measureBareCpu(app);
    if (mode == QLatin1StringView("cpu"))
        return measureProgramCpu(app);
    return measureProgramMemory(app, mode == QLatin1StringView("opened"));
}

// The figures a fresh child process prints in mode, at a demo instant when one is given.
QStringList runChild(const QString &mode, const char *demoInstant = nullptr)
{
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (demoInstant)
        environment.insert(QStringLiteral("TIDEWELL_DEMO_AT"), QString::fromLatin1(demoInstant));
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {mode});
    child.waitForFinished(measuredSeconds() * 1000 + 90'000);
    return QString::fromUtf8(child.readAllStandardOutput()).trimmed().split(u' ');
}

double figure(const QStringList &figures, int index)
{
    return figures.value(index).toDouble();
}

void printClickFigures(const QStringList &opened)
{
    const double bare = figure(runChild(QStringLiteral("bare-click")), 0);
    std::printf("tray click to the panel's first frame: %.1f ms; to a bare window of 8 plain cards: %.1f ms "
                "(%.2fx)\n",
                figure(opened, 0), bare, figure(opened, 0) / bare);
}

void printMemoryFigures(const QStringList &opened)
{
    const double bare = figure(runChild(QStringLiteral("bare")), 0);
    const double idle = figure(runChild(QStringLiteral("idle")), 0);
    std::printf("resident memory, bare Qt Quick window shown once and hidden: %.0f KiB\n", bare);
    std::printf("resident memory, idle with the panel never opened: %.0f KiB (%.2fx the bare window; target "
                "<= 1.3x)\n",
                idle, idle / bare);
    std::printf(
        "resident memory, %lld s after the panel was opened and hidden: %.0f KiB (%.2fx)\n",
        qlonglong(std::chrono::duration_cast<std::chrono::seconds>(PanelController::releaseAfter).count() +
                  3),
        figure(opened, 1), figure(opened, 1) / bare);
}

void printCpuFigures()
{
    const QStringList quiet = runChild(QStringLiteral("cpu"), quietInstant);
    const QStringList live = runChild(QStringLiteral("cpu"), liveInstant);
    const QStringList dot = runChild(QStringLiteral("bare-cpu"));
    const int seconds = measuredSeconds();
    std::printf("CPU over %d s with the panel open, %.0f matches live: %.2f%% of one core, %.0f frames\n",
                seconds, figure(quiet, 2), figure(quiet, 0), figure(quiet, 1));
    std::printf("CPU over %d s with the panel open, %.0f matches live: %.2f%% of one core, %.0f frames\n",
                seconds, figure(live, 2), figure(live, 0), figure(live, 1));
    std::printf("CPU over %d s, bare window pulsing one dot: %.2f%% of one core, %.0f frames (live panel / "
                "dot: %.2fx)\n",
                seconds, figure(dot, 0), figure(dot, 1), figure(live, 0) / figure(dot, 0));
    std::printf(
        "main-thread CPU per poll with the panel open and matches live: %.2f ms (mean of %.0f polls)\n",
        figure(live, 3), figure(live, 4));
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc > 1) {
        QApplication app(argc, argv);
        return runMode(app, QString::fromLatin1(argv[1]));
    }
    QCoreApplication app(argc, argv);
    // Opened once for both: the click's time, then the memory left after hiding.
    const QStringList opened = runChild(QStringLiteral("opened"));
    printClickFigures(opened);
    printMemoryFigures(opened);
    printCpuFigures();
    return 0;
}
