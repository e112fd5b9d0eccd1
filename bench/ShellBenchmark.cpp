// The tray application's costs under a real X server: time from a tray click to the panel's first frame,
// and resident memory at idle with the panel never opened and after it has been opened and hidden, beside
// a bare Qt Quick window measured the same way as the floor. Each figure comes from a fresh process.

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

// A bare Qt Quick window, shown once and hidden: the floor any Qt Quick tray program stands on.
int measureBare(QApplication &app)
{
    QQuickView view;
    view.setSource(QUrl(QStringLiteral("data:text/plain,import QtQuick; Item { width: 388; height: 760 }")));
    view.show();
    QObject::connect(&view, &QQuickWindow::frameSwapped, &app, [&] {
        static bool first = true;
        if (!first)
            return;
        first = false;
        view.hide();
        after(settleMilliseconds, [&] {
            std::printf("%ld\n", residentKilobytes());
            app.quit();
        });
    });
    return app.exec();
}

int measureProgram(QApplication &app, bool openPanel)
{
    DemoProfile demo;
    if (!demo.activate())
        return 1;
    AppModel::Services services;
    services.now = [&demo] { return demo.now(); };
    services.applyTint = [](double hue, double strength) {
        ThemeSingleton::instance()->apply(hue, strength);
    };
    AppDelegate delegate(std::move(services));
    delegate.launch(nullptr);
    if (!openPanel) {
        after(settleMilliseconds, [&] {
            std::printf("%ld\n", residentKilobytes());
            app.quit();
        });
        return app.exec();
    }
    after(settleMilliseconds, [&] {
        QElapsedTimer clock;
        clock.start();
        delegate.togglePanel();
        QObject::connect(delegate.panel()->window(), &QQuickWindow::frameSwapped, &app, [&, clock] {
            static bool first = true;
            if (!first)
                return;
            first = false;
            std::printf("%.1f ", double(clock.nsecsElapsed()) / 1e6);
            delegate.panel()->hide();
            after(int(PanelController::releaseAfter.count()) + settleMilliseconds, [&] {
                std::printf("%ld\n", residentKilobytes());
                app.quit();
            });
        });
    });
    return app.exec();
}

QString runChild(const QString &mode)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {mode});
    child.waitForFinished(60'000);
    return QString::fromUtf8(child.readAllStandardOutput()).trimmed();
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc > 1) {
        QApplication app(argc, argv);
        const QString mode = QString::fromLatin1(argv[1]);
        if (mode == QLatin1StringView("bare"))
            return measureBare(app);
        return measureProgram(app, mode == QLatin1StringView("opened"));
    }
    QCoreApplication app(argc, argv);
    const double bare = runChild(QStringLiteral("bare")).toDouble();
    const double idle = runChild(QStringLiteral("idle")).toDouble();
    const QStringList opened = runChild(QStringLiteral("opened")).split(u' ');
    std::printf("tray click to the panel's first frame: %s ms\n", qPrintable(opened.value(0)));
    std::printf("resident memory, bare Qt Quick window shown once and hidden: %.0f KiB\n", bare);
    std::printf("resident memory, idle with the panel never opened: %.0f KiB (%.2fx the bare window; target "
                "<= 1.3x)\n",
                idle, idle / bare);
    std::printf(
        "resident memory, %lld s after the panel was opened and hidden: %s KiB (%.2fx)\n",
        qlonglong(std::chrono::duration_cast<std::chrono::seconds>(PanelController::releaseAfter).count() +
                  3),
        qPrintable(opened.value(1)), opened.value(1).toDouble() / bare);
    return 0;
}
