#include "AppDelegate.h"
#include "DemoProfile.h"
#include "DisplayPlatform.h"
#include "PitchlarkVersion.h"
#include "StatusCommand.h"

#include "Notifications/FreedesktopNotificationSender.h"
#include "State/BackgroundPortalLoginItem.h"
#include "Support/AppIdentity.h"

#include "SingleInstance.h"
#include "ThemeSingleton.h"
#include "TrayFactory.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
#include <QTextStream>
#include <QTimer>
#include <QUrl>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Pitchlark_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_FeaturesPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_AppPlugin)

namespace {

int runStatus(const QStringList &arguments, int argc, char *argv[])
{
    // Headless: no connection to a display, so it runs in a status bar's shell or over ssh.
    QCoreApplication app(argc, argv);
    QTextStream errors(stderr);
    auto command = StatusCommand::fromArguments(arguments, errors);
    if (!command)
        return StatusCommand::badOptions;
    QTimer::singleShot(0, &app, [&command] { command->start(); });
    return app.exec();
}

// `pitchlark --toggle`, for a keyboard shortcut: needs no display of its own, only the session bus.
int runToggle(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream errors(stderr);
    return SingleInstance::toggleRunningInstance(errors);
}

// Read before any display is opened, so that --help and --version answer on a bare console.
// Returns whether --demo was given; help, version and bad options end the process here.
bool parseTrayAppOptions(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Your World Cup 2026 companion, in the system tray.\n\n"
                       "Commands:\n"
                       "  status   Print the live score, today's fixtures and the "
                       "tables (see pitchlark status --help)."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption demo(QStringLiteral("demo"),
                                  QStringLiteral("Replay the tournament inside the program, on a temporary "
                                                 "profile."));
    const QCommandLineOption toggle(
        QStringLiteral("toggle"), QStringLiteral("Open or close the running Pitchlark's panel (bind it to a "
                                                 "keyboard shortcut)."));
    parser.addOptions({demo, toggle});
    parser.process(app);
    return parser.isSet(demo);
}

int runTrayApp(int argc, char *argv[])
{
    const bool demo = parseTrayAppOptions(argc, argv);
    if (!chooseDisplayPlatform()) {
        QTextStream(stderr) << "Pitchlark needs a desktop session, but no X11 or Wayland display answered "
                               "(DISPLAY and WAYLAND_DISPLAY).\n";
        return 1;
    }
    // Animations follow the clock, not the count of frames drawn: under a software renderer a frame can
    // take longer than a refresh, and a page slide would drag on for as many frames as it was meant to.
    if (!qEnvironmentVariableIsSet("QSG_USE_SIMPLE_ANIMATION_DRIVER"))
        qputenv("QSG_USE_SIMPLE_ANIMATION_DRIVER", "1");
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);

    // One Pitchlark a session: a second start opens or closes the first one's panel instead.
    SingleInstance instance;
    QTextStream errors(stderr);
    if (const auto exitCode = instance.claimOrHandOver(errors))
        return *exitCode;

    DemoProfile demoProfile;
    AppModel::Services services;
    services.notifications = std::make_unique<FreedesktopNotificationSender>();
    if (insideFlatpak())
        services.loginItem = std::make_unique<BackgroundPortalLoginItem>();
    services.applyTint = [](double hue, double strength) {
        ThemeSingleton::instance()->apply(hue, strength);
    };
    // Inside a Flatpak, Qt hands the file to the OpenURI portal instead of xdg-open.
    services.openFile = [](const QString &path) { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); };
    if (demo) {
        if (!demoProfile.activate()) {
            QTextStream(stderr) << "The demo could not start its replay service.\n";
            return 1;
        }
        services.now = [&demoProfile] { return demoProfile.now(); };
    }
    AppDelegate delegate(std::move(services));
    QObject::connect(&instance, &SingleInstance::toggleRequested, &delegate,
                     [&delegate] { delegate.togglePanel(); });
    delegate.launch(createTrayItem());
    return app.exec();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("pitchlark"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PITCHLARK_VERSION));
    QGuiApplication::setDesktopFileName(AppIdentity::appId());

    if (argc > 1 && QLatin1StringView(argv[1]) == QLatin1StringView("status")) {
        QStringList arguments;
        for (int index = 2; index < argc; ++index)
            arguments << QString::fromLocal8Bit(argv[index]);
        return runStatus(arguments, argc, argv);
    }
    for (int index = 1; index < argc; ++index) {
        if (QLatin1StringView(argv[index]) == QLatin1StringView("--toggle"))
            return runToggle(argc, argv);
    }
    return runTrayApp(argc, argv);
}
