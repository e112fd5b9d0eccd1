// The tray application's costs under a real X server, each beside a bare Qt Quick window measured the
// same way as the floor: time from a tray click to the panel's first frame; resident memory at idle with
// the panel never opened and after it has been opened and hidden. Each figure comes from a fresh process.

#include "AppDelegate.h"
#include "DemoProfile.h"
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
#include <QTimer>
#include <QtQml/QQmlExtensionPlugin>

#include <cstdio>

Q_IMPORT_QML_PLUGIN(Pitchlark_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_FeaturesPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_AppPlugin)

namespace {

constexpr int settleMilliseconds = 3000;

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

int runMode(QApplication &app, const QString &mode)
{
    if (mode == QLatin1StringView("bare"))
        return measureBareMemory(app);
    if (mode == QLatin1StringView("bare-click"))
        return measureBareClick(app);
    return measureProgramMemory(app, mode == QLatin1StringView("opened"));
}

// The figures a fresh child process prints in mode.
QStringList runChild(const QString &mode)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {mode});
    child.waitForFinished(60'000);
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
    return 0;
}
