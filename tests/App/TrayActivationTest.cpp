#include "AppDelegate.h"
#include "FeedServer.h"
#include "ModelFixture.h"
#include "PanelController.h"
#include "StatusNotifierTrayItem.h"

#include "UpdateToastWindowController.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

#include <xcb/xcb.h>

#include <cstdlib>

Q_IMPORT_QML_PLUGIN(Pitchlark_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_FeaturesPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_AppPlugin)

// The tray host's clicks reach the whole program: a real tray item on a private session bus, the real
// delegate, model and panel on a real X server, and the host played by a second bus connection.
class TrayActivationTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void clickTogglesThePanel();
    void middleClickRefreshes();
    void iconScoreFollowsTheSetting_data();
    void iconScoreFollowsTheSetting();
    void panelStaysAboveTheToast();

private:
    // Calls a method of the item as the tray host does, from its own connection.
    void hostCalls(const QString &method);

    std::unique_ptr<FeedServer> m_feed;
    std::unique_ptr<ModelFixture> m_fixture;
    std::unique_ptr<AppDelegate> m_delegate;
    StatusNotifierTrayItem *m_tray = nullptr;
};

namespace {

// Where the window stands among the root window's children, bottom first (no window manager here).
qsizetype stackingIndex(QWindow *window)
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t *connection = x11->connection();
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

} // namespace

void TrayActivationTest::init()
{
    QVERIFY2(QDBusConnection::sessionBus().isConnected(), "no session bus: run under dbus-run-session");
    const QDateTime at(QDate(2026, 6, 27), QTime(21, 30), QTimeZone::utc());
    m_feed = std::make_unique<FeedServer>(Tournament::bundled(), TournamentClock::frozen(at));
    m_fixture = std::make_unique<ModelFixture>(QStringLiteral("http://127.0.0.1:%1").arg(m_feed->listen()));
    m_delegate = std::make_unique<AppDelegate>(m_fixture->services([at] { return at; }));
    auto tray = std::make_unique<StatusNotifierTrayItem>();
    m_tray = tray.get();
    m_delegate->launch(std::move(tray));
    QTRY_VERIFY(!m_delegate->model().isLoading());
}

void TrayActivationTest::cleanup()
{
    m_delegate.reset();
    m_fixture.reset();
    m_feed.reset();
}

void TrayActivationTest::hostCalls(const QString &method)
{
    QDBusConnection host = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("host"));
    QDBusMessage call =
        QDBusMessage::createMethodCall(m_tray->serviceName(), QStringLiteral("/StatusNotifierItem"),
                                       QStringLiteral("org.kde.StatusNotifierItem"), method);
    call << 1400 << 10;
    QVERIFY(host.send(call));
}

void TrayActivationTest::clickTogglesThePanel()
{
    hostCalls(QStringLiteral("Activate"));
    QTRY_VERIFY(m_delegate->panel()->isShown());
    QVERIFY(QTest::qWaitForWindowExposed(m_delegate->panel()->window()));
    hostCalls(QStringLiteral("Activate"));
    QTRY_VERIFY(!m_delegate->panel()->isShown());
}

void TrayActivationTest::middleClickRefreshes()
{
    QSignalSpy loading(&m_delegate->model(), &AppModel::isLoadingChanged);
    hostCalls(QStringLiteral("SecondaryActivate"));
    // One whole cycle: loading, then loaded.
    QTRY_COMPARE(loading.count(), 2);
    QVERIFY(!m_delegate->panel()->isShown());
}

void TrayActivationTest::iconScoreFollowsTheSetting_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<bool>("scoreShown");

    // No watcher runs here, so no host shows the label.
    QTest::newRow("automatic") << "auto" << true;
    QTest::newRow("always") << "always" << true;
    QTest::newRow("never") << "never" << false;
}

void TrayActivationTest::iconScoreFollowsTheSetting()
{
    QFETCH(QString, choice);
    QVERIFY(m_delegate->model().trayTitle().has_value());
    m_delegate->model().menuBar().updateIconScore(choice);
    QTEST(m_tray->iconName().isEmpty(), "scoreShown");
}

void TrayActivationTest::panelStaysAboveTheToast()
{
    m_delegate->togglePanel();
    QVERIFY(QTest::qWaitForWindowExposed(m_delegate->panel()->window()));
    m_delegate->updateToast().show();
    QVERIFY(QTest::qWaitForWindowExposed(m_delegate->updateToast().window()));
    QTRY_VERIFY(stackingIndex(m_delegate->panel()->window()) >
                stackingIndex(m_delegate->updateToast().window()));
}

QTEST_MAIN(TrayActivationTest)
#include "TrayActivationTest.moc"
