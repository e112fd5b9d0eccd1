#include "AppDelegate.h"
#include "FeedServer.h"
#include "GlassImages.h"
#include "ModelFixture.h"
#include "PanelController.h"
#include "StatusNotifierTrayItem.h"
#include "UpdateToastWindowController.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

#include <xcb/xcb.h>

#include <cstdlib>

Q_IMPORT_QML_PLUGIN(Pitchlark_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_FeaturesPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_AppPlugin)

// The panel on a real X server (CTest runs it under Xvfb with no window manager; it runs as well on a
// display where one is running), clicked and typed at with xdotool as a user would, from outside the
// program, and driven by a tray host on a private session bus. The last case starts Debian's kwin_x11
// when it is installed, for its blur.
class PanelOnX11Test : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void dismissal_data();
    void dismissal();
    void trayClickWhileOpenClosesOnce();
    void trayHostDrivesTheProgram();
    void glassWithoutCompositor_data();
    void glassWithoutCompositor();
    void kwinBlursBehindThePanel();

private:
    QPoint outside() const { return QPoint(200, 450); }
    QPoint inside() const { return m_panel->window()->geometry().center(); }

    QQmlEngine m_engine;
    ModelFixture m_fixture;
    std::unique_ptr<AppModel> m_model;
    std::unique_ptr<PanelController> m_panel;
};

namespace {

void xdotool(const QStringList &arguments)
{
    QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
}

void clickAt(const QPoint &point)
{
    xdotool({QStringLiteral("mousemove"), QString::number(point.x()), QString::number(point.y()),
             QStringLiteral("click"), QStringLiteral("1")});
}

xcb_atom_t atom(xcb_connection_t *connection, const char *name)
{
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, false, uint16_t(strlen(name)), name), nullptr);
    const xcb_atom_t value = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(reply);
    return value;
}

xcb_connection_t *display()
{
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

bool compositorRuns()
{
    xcb_connection_t *connection = display();
    xcb_get_selection_owner_reply_t *owner = xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom(connection, "_NET_WM_CM_S0")), nullptr);
    const bool owned = owner && owner->owner != XCB_NONE;
    std::free(owner);
    return owned;
}

// Where the window stands among the root window's children, bottom first (no window manager here).
qsizetype stackingIndex(QWindow *window)
{
    xcb_connection_t *connection = display();
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_query_tree_reply_t *tree =
        xcb_query_tree_reply(connection, xcb_query_tree(connection, root), nullptr);
    const xcb_window_t *children = xcb_query_tree_children(tree);
    const auto count = xcb_query_tree_children_length(tree);
    const auto found = std::find(children, children + count, xcb_window_t(window->winId()));
    const qsizetype index = found - children;
    std::free(tree);
    return index;
}

bool hasProperty(xcb_connection_t *connection, xcb_window_t window, const char *name)
{
    xcb_get_property_reply_t *reply = xcb_get_property_reply(
        connection,
        xcb_get_property(connection, false, window, atom(connection, name), XCB_GET_PROPERTY_TYPE_ANY, 0, 0),
        nullptr);
    const bool present = reply && reply->type != XCB_NONE;
    std::free(reply);
    return present;
}

} // namespace

void PanelOnX11Test::initTestCase()
{
    QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));
    QVERIFY2(!QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty(),
             "xdotool is missing: run scripts/install-deps.sh");
    m_engine.addImportPath(QStringLiteral("qrc:/"));
    m_engine.addImageProvider(QStringLiteral("glass"), new GlassImageProvider);
    m_model = m_fixture.makeModel();
}

void PanelOnX11Test::init()
{
    m_panel = std::make_unique<PanelController>(*m_model, m_engine);
}

void PanelOnX11Test::cleanup()
{
    m_panel.reset();
    qunsetenv("TIDEWELL_PINNED");
    m_model->glass().setFloatingCards(false);
}

void PanelOnX11Test::dismissal_data()
{
    QTest::addColumn<QStringList>("clicks"); // "milliseconds after show, in|out|Escape"
    QTest::addColumn<QList<bool>>("shownAfter");
    QTest::addColumn<bool>("activationRefused");
    QTest::addColumn<bool>("pinned");

    // clang-format off
    QTest::newRow("inside the grace, then after") << QStringList{"100 out", "1500 out"} << QList<bool>{true, false} << false << false;
    QTest::newRow("after the grace") << QStringList{"500 out"} << QList<bool>{false} << false << false;
    QTest::newRow("on the panel") << QStringList{"500 in"} << QList<bool>{true} << false << false;
    QTest::newRow("activation refused") << QStringList{"600 out"} << QList<bool>{false} << true << false;
    QTest::newRow("pinned") << QStringList{"600 out"} << QList<bool>{true} << false << true;
    QTest::newRow("Escape, even pinned") << QStringList{"500 Escape"} << QList<bool>{false} << false << true;
    // clang-format on
}

void PanelOnX11Test::dismissal()
{
    QFETCH(QStringList, clicks);
    QFETCH(QList<bool>, shownAfter);
    QFETCH(bool, activationRefused);
    QFETCH(bool, pinned);
    if (pinned)
        qputenv("TIDEWELL_PINNED", "1");
    // Another window that takes the focus the moment the panel asks for it, as a window manager that
    // prevents focus stealing would leave it.
    QWindow other;
    other.setGeometry(40, 40, 300, 200);

    QElapsedTimer sinceShown;
    m_panel->show();
    sinceShown.start();
    if (activationRefused) {
        other.show();
        other.requestActivate();
    }
    for (int index = 0; index < clicks.size(); ++index) {
        const QStringList click = clicks.at(index).split(u' ');
        const int at = click.at(0).toInt();
        QTest::qWait(int(std::max<qint64>(0, at - sinceShown.elapsed())));
        if (click.at(1) == QLatin1StringView("Escape")) {
            QTRY_VERIFY(m_panel->window()->isActive());
            xdotool({QStringLiteral("key"), QStringLiteral("Escape")});
        } else {
            clickAt(click.at(1) == QLatin1StringView("in") ? inside() : outside());
        }
        // A click meant for inside the grace that a busy machine delivered after it proves nothing.
        if (at < PanelController::outsideClickGrace.count() &&
            sinceShown.elapsed() >= PanelController::outsideClickGrace.count())
            QSKIP("xdotool's click came after the grace on this busy machine");
        QTest::qWait(300);
        QVERIFY2(m_panel->isShown() == shownAfter.at(index), qPrintable(clicks.at(index)));
    }
}

void PanelOnX11Test::trayClickWhileOpenClosesOnce()
{
    m_panel->show();
    QTest::qWait(600);
    // The press on the tray item reaches the panel as a click elsewhere, then the item's own toggle.
    clickAt(outside());
    QTRY_VERIFY(!m_panel->isShown());
    m_panel->toggle();
    QVERIFY(!m_panel->isShown());
    // The next click on the item opens it again.
    QTest::qWait(500);
    m_panel->toggle();
    QVERIFY(m_panel->isShown());
}

// The tray host's clicks reach the whole program: a real tray item, the real delegate, model and
// panel, and the host played by a second bus connection. One walk, each step on the state the last
// one left.
void PanelOnX11Test::trayHostDrivesTheProgram()
{
    QVERIFY2(QDBusConnection::sessionBus().isConnected(), "no session bus: run under dbus-run-session");
    const QDateTime at(QDate(2026, 6, 27), QTime(21, 30), QTimeZone::utc());
    FeedServer feed(Tournament::bundled(), TournamentClock::frozen(at));
    ModelFixture fixture(QStringLiteral("http://127.0.0.1:%1").arg(feed.listen()));
    AppDelegate delegate(fixture.services([at] { return at; }));
    auto tray = std::make_unique<StatusNotifierTrayItem>();
    StatusNotifierTrayItem *item = tray.get();
    delegate.launch(std::move(tray));
    QTRY_VERIFY(!delegate.model().isLoading());
    QDBusConnection host = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("host"));
    const auto hostCalls = [&host, item](const QString &method) {
        QDBusMessage call =
            QDBusMessage::createMethodCall(item->serviceName(), QStringLiteral("/StatusNotifierItem"),
                                           QStringLiteral("org.kde.StatusNotifierItem"), method);
        call << 1400 << 10;
        QVERIFY(host.send(call));
    };

    PanelController *panel = delegate.panel();
    hostCalls(QStringLiteral("Activate"));
    QTRY_VERIFY(panel->isShown());
    QVERIFY(QTest::qWaitForWindowExposed(panel->window()));
    // The panel stays above the update toast that shows while it is open.
    delegate.updateToast().show();
    QVERIFY(QTest::qWaitForWindowExposed(delegate.updateToast().window()));
    QTRY_VERIFY(stackingIndex(panel->window()) > stackingIndex(delegate.updateToast().window()));
    hostCalls(QStringLiteral("Activate"));
    QTRY_VERIFY(!panel->isShown());

    // A middle click refreshes, one whole cycle (loading, then loaded), and leaves the panel closed.
    QSignalSpy loading(&delegate.model(), &AppModel::isLoadingChanged);
    hostCalls(QStringLiteral("SecondaryActivate"));
    QTRY_COMPARE(loading.count(), 2);
    QVERIFY(!panel->isShown());

    // The icon's score follows the setting. No watcher runs here, so no host shows the label and
    // "auto" draws it.
    QVERIFY(delegate.model().trayTitle().has_value());
    const std::pair<const char *, bool> choices[] = {{"never", false}, {"auto", true}, {"always", true}};
    for (const auto &[choice, scoreShown] : choices) {
        delegate.model().menuBar().updateIconScore(QString::fromLatin1(choice));
        QVERIFY2(item->iconName().isEmpty() == scoreShown, choice);
    }
}

void PanelOnX11Test::glassWithoutCompositor_data()
{
    QTest::addColumn<bool>("floating");

    QTest::newRow("framed glass") << false;
    QTest::newRow("floating cards") << true;
}

void PanelOnX11Test::glassWithoutCompositor()
{
    if (compositorRuns())
        QSKIP("a compositor runs on this display");
    QFETCH(bool, floating);
    m_model->glass().setFloatingCards(floating);

    m_panel->show();
    QQuickWindow *window = m_panel->window();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    const QRegion shape = window->mask();
    QVERIFY(!shape.contains(QPoint(0, 0)));
    QVERIFY(!shape.contains(QPoint(window->width() - 1, window->height() - 1)));
    QVERIFY(shape.contains(QPoint(PanelController::cornerRadius, 0)));
    QVERIFY(shape.contains(QPoint(window->width() / 2, window->height() / 2)));

    // The picture, pixel by pixel. Round corners leave the very corner clear in both modes.
    const QImage image = window->grabWindow();
    QVERIFY(image.hasAlphaChannel());
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(image.pixel(image.width() - 1, image.height() - 1)), 0);
    // Only glass lies in the gutter left of the cards: check the layers there.
    const auto alphaAt = [&image](int x) { return qAlpha(image.pixel(x, image.height() / 2)); };
    if (floating) {
        // No rim: the glass fades out towards the edge.
        QVERIFY2(alphaAt(1) < alphaAt(12) / 3,
                 qPrintable(QStringLiteral("%1 %2").arg(alphaAt(1)).arg(alphaAt(12))));
    } else {
        // Translucent frost, with a white rim along its edge.
        const int glass = alphaAt(8);
        QVERIFY2(glass > 120 && glass < 255, qPrintable(QString::number(glass)));
        QCOMPARE(alphaAt(1), glass);
        QVERIFY2(alphaAt(0) > glass, qPrintable(QString::number(alphaAt(0))));
    }
}

void PanelOnX11Test::kwinBlursBehindThePanel()
{
    const QString kwin = QStandardPaths::findExecutable(QStringLiteral("kwin_x11"));
    if (kwin.isEmpty())
        QSKIP("kwin_x11 is not installed (Debian's kwin-x11)");
    // KWin leaves its blur off by default on a software renderer (Mesa's llvmpipe, here): turn it on.
    QTemporaryDir config;
    QFile settings(config.filePath(QStringLiteral("kwinrc")));
    QVERIFY(settings.open(QIODevice::WriteOnly));
    settings.write("[Plugins]\nblurEnabled=true\n");
    settings.close();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    QProcess windowManager;
    windowManager.setProcessEnvironment(environment);
    windowManager.setStandardOutputFile(QProcess::nullDevice());
    windowManager.setStandardErrorFile(QProcess::nullDevice());
    windowManager.start(kwin, {QStringLiteral("--replace")});
    QVERIFY(windowManager.waitForStarted());
    xcb_connection_t *connection = display();
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    // KWin announces its blur effect on the root window once compositing is up.
    QTRY_VERIFY_WITH_TIMEOUT(hasProperty(connection, root, "_KDE_NET_WM_BLUR_BEHIND_REGION"), 30'000);
    QTRY_VERIFY(compositorRuns());

    m_panel->show();
    QQuickWindow *window = m_panel->window();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY(window->property("compositorBlurs").toBool());
    QVERIFY(hasProperty(connection, xcb_window_t(window->winId()), "_KDE_NET_WM_BLUR_BEHIND_REGION"));
    QVERIFY(window->mask().isEmpty());

    m_panel.reset();
    windowManager.terminate();
    QVERIFY(windowManager.waitForFinished(10'000));
}

QTEST_MAIN(PanelOnX11Test)
#include "PanelOnX11Test.moc"
