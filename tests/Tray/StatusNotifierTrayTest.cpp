#include "DBusMenuExporter.h"
#include "LabelHosts.h"
#include "ScoreIcon.h"
#include "SessionTrayItem.h"
#include "SingleInstance.h"
#include "StatusIcon.h"
#include "StatusNotifierTrayItem.h"
#include "TrayFactory.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <csignal>

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");

// The tray item on a private session bus (CTest runs this under dbus-run-session) against Debian's real
// status-notifier-watcher. No tray host runs here, so the test plays the host: it reads properties,
// asks for the menu and sends clicks from a connection of its own, as a panel would.
class StatusNotifierTrayTest : public QObject {
    Q_OBJECT

public:
    StatusNotifierTrayTest() : m_host(QDBusConnection::connectToBus(QDBusConnection::SessionBus, "host")) {}

private slots:
    void initTestCase();
    void cleanupTestCase() { stopWatcher(); }
    void registersAgainWhenWatcherRestarts();
    void titleReachesHosts_data();
    void titleReachesHosts();
    void labelHosts_data();
    void labelHosts();
    void hostCalls_data();
    void hostCalls();
    void secondInstance_data();
    void secondInstance();

private slots:
    void recordNewLabel(const QString &label, const QString &) { m_labels.append(label); }
    void recordNewToolTip() { ++m_toolTipSignals; }

private:
    void startWatcher();
    void stopWatcher();
    QStringList registeredItems();
    QDBusMessage callHost(QDBusMessage call);
    QVariant property(const QString &service, const QString &path, const QString &interface,
                      const QString &name);
    QVariant itemProperty(const StatusNotifierTrayItem &item, const QString &name)
    {
        return property(item.serviceName(), QStringLiteral("/StatusNotifierItem"), itemInterface, name);
    }

    QDBusConnection m_host;
    QProcess m_watcher;
    QStringList m_labels;
    int m_toolTipSignals = 0;
};

namespace {

// Records the tray signals an action fires, by name, in order.
void recordSignals(TrayItem &item, QStringList &fired)
{
    QObject::connect(&item, &TrayItem::activated, &item, [&fired](const QPoint &at) {
        fired << QStringLiteral("activated(%1,%2)").arg(at.x()).arg(at.y());
    });
    QObject::connect(&item, &TrayItem::refreshRequested, &item, [&fired] { fired << "refreshRequested"; });
    QObject::connect(&item, &TrayItem::hideScoresToggled, &item, [&fired] { fired << "hideScoresToggled"; });
    QObject::connect(&item, &TrayItem::quitRequested, &item, [&fired] { fired << "quitRequested"; });
}

// WCAG's contrast ratio of two opaque colours, from 1 to 21.
double contrast(QRgb first, QRgb second)
{
    const auto luminance = [](QRgb rgb) {
        const auto linear = [](int channel) {
            const double value = channel / 255.0;
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(qRed(rgb)) + 0.7152 * linear(qGreen(rgb)) + 0.0722 * linear(qBlue(rgb));
    };
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

void StatusNotifierTrayTest::initTestCase()
{
    QVERIFY2(m_host.isConnected(), "no session bus: run under dbus-run-session");
    QVERIFY2(!QStandardPaths::findExecutable(QStringLiteral("status-notifier-watcher")).isEmpty(),
             "status-notifier-watcher is missing: run scripts/install-deps.sh");
    registerTrayDBusTypes();
    startWatcher();
}

void StatusNotifierTrayTest::startWatcher()
{
    m_watcher.start(QStringLiteral("status-notifier-watcher"), {});
    QVERIFY(m_watcher.waitForStarted());
    QTRY_VERIFY(m_host.interface()->isServiceRegistered(watcherService));
}

void StatusNotifierTrayTest::stopWatcher()
{
    if (m_watcher.state() == QProcess::NotRunning)
        return;
    m_watcher.kill();
    m_watcher.waitForFinished();
    QTRY_VERIFY(!m_host.interface()->isServiceRegistered(watcherService));
}

// Calls are made asynchronously: the item answers on this same thread, so a blocking call would wait
// for itself.
QDBusMessage StatusNotifierTrayTest::callHost(QDBusMessage call)
{
    call.setAutoStartService(false);
    QDBusPendingCall pending = m_host.asyncCall(call, 5000);
    if (!QTest::qWaitFor([&pending] { return pending.isFinished(); }, 6000))
        return {};
    // Deliver the signals that arrived before the reply.
    QCoreApplication::processEvents();
    return pending.reply();
}

QStringList StatusNotifierTrayTest::registeredItems()
{
    return property(watcherService, QStringLiteral("/StatusNotifierWatcher"), watcherService,
                    QStringLiteral("RegisteredStatusNotifierItems"))
        .toStringList();
}

QVariant StatusNotifierTrayTest::property(const QString &service, const QString &path,
                                          const QString &interface, const QString &name)
{
    const QDBusMessage reply =
        callHost(QDBusMessage::createMethodCall(
                     service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"))
                 << interface << name);
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

void StatusNotifierTrayTest::registersAgainWhenWatcherRestarts()
{
    stopWatcher();
    // The program's tray as it starts before the desktop's tray does.
    auto tray = createTrayItem();
    QVERIFY(qobject_cast<SessionTrayItem *>(tray.get()));
    StatusNotifierTrayItem *item = &static_cast<SessionTrayItem *>(tray.get())->statusNotifierItem();

    // A watcher that appears after the item, and one that comes back after a crash (twice), all learn of
    // it within a second.
    for (int start = 0; start < 3; ++start) {
        stopWatcher();
        startWatcher();
        QTRY_COMPARE_WITH_TIMEOUT(registeredItems(), QStringList{item->serviceName()}, 1000);
    }
    const auto properties = qdbus_cast<QVariantMap>(
        callHost(QDBusMessage::createMethodCall(item->serviceName(), QStringLiteral("/StatusNotifierItem"),
                                                QStringLiteral("org.freedesktop.DBus.Properties"),
                                                QStringLiteral("GetAll"))
                 << itemInterface)
            .arguments()
            .value(0)
            .value<QDBusArgument>());
    QCOMPARE(properties.value("Id").toString(), QStringLiteral("pitchlark"));
    QCOMPARE(properties.value("Title").toString(), QStringLiteral("Pitchlark"));
    QCOMPARE(properties.value("Category").toString(), QStringLiteral("ApplicationStatus"));
    QCOMPARE(properties.value("Status").toString(), QStringLiteral("Active"));
    QCOMPARE(properties.value("IconName").toString(), QStringLiteral("com.pitchlark.Pitchlark-symbolic"));
    QCOMPARE(properties.value("Menu").value<QDBusObjectPath>().path(), QStringLiteral("/MenuBar"));

    // Quitting drops the name, and with it the watcher's entry.
    tray.reset();
    QTRY_COMPARE(registeredItems(), QStringList());
}

void StatusNotifierTrayTest::titleReachesHosts_data()
{
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<bool>("scoreInIcon");
    QTest::addColumn<QStringList>("labelSignals");
    QTest::addColumn<QString>("toolTipTitle");
    QTest::addColumn<bool>("scoreShown");
    QTest::addColumn<int>("newIconSignals");
    QTest::addColumn<QString>("piece"); // what the icon draws

    const QString score = QStringLiteral("🇵🇦 0–2 🏴󠁧󠁢󠁥󠁮󠁧󠁿");
    const QString running = QStringLiteral("🇵🇦 v ENG · 31'");
    const QString added = QStringLiteral("🇵🇦 v ENG · 90'+4'");
    // clang-format off
    QTest::newRow("same score again is quiet") << QStringList{score, score} << true << QStringList{score} << score << true << 1 << "0–2";
    QTest::newRow("full time clears it") << QStringList{score, ""} << true << QStringList{score, ""} << "Pitchlark" << false << 2 << "";
    QTest::newRow("no live match from the start") << QStringList{""} << true << QStringList{} << "Pitchlark" << false << 0 << "";
    QTest::newRow("score not drawn") << QStringList{score} << false << QStringList{score} << score << false << 0 << "0–2";
    // A hidden score leaves the clock, never the score.
    QTest::newRow("hidden, running") << QStringList{running} << true << QStringList{running} << running << true << 1 << "31'";
    QTest::newRow("hidden, added time") << QStringList{added} << true << QStringList{added} << added << true << 1 << "90+";
    // Hosts render tooltips as markup and labels as plain text.
    QTest::newRow("markup in a title") << QStringList{"<b>P&A</b> 1–0"} << true << QStringList{"<b>P&A</b> 1–0"}
                                       << "&lt;b&gt;P&amp;A&lt;/b&gt; 1–0" << true << 1 << "1–0";
    // clang-format on
}

void StatusNotifierTrayTest::titleReachesHosts()
{
    QFETCH(QStringList, titles);
    QFETCH(bool, scoreInIcon);
    QFETCH(bool, scoreShown);
    StatusNotifierTrayItem item;
    QSignalSpy newIcon(&item, &StatusNotifierTrayItem::NewIcon);
    m_labels.clear();
    m_toolTipSignals = 0;
    const QString path = QStringLiteral("/StatusNotifierItem");
    QVERIFY(m_host.connect(item.serviceName(), path, itemInterface, QStringLiteral("XAyatanaNewLabel"), this,
                           SLOT(recordNewLabel(QString, QString))));
    QVERIFY(m_host.connect(item.serviceName(), path, itemInterface, QStringLiteral("NewToolTip"), this,
                           SLOT(recordNewToolTip())));
    // The match rules go out without waiting; a round trip to the bus makes sure they are in place.
    QVERIFY(m_host.interface()->isServiceRegistered(item.serviceName()));

    item.setScoreInIcon(scoreInIcon);
    for (const QString &title : std::as_const(titles))
        item.setTitle(title);
    item.setLiveMatches(
        {QStringLiteral("Panama 0–2 England · 67′"), QStringLiteral("<i>Croatia</i> 1–1 Ghana · 64′")});
    const QString title = titles.constLast();
    QTEST(int(newIcon.count()), "newIconSignals");
    QTEST(scorePiece(title), "piece");

    QCOMPARE(itemProperty(item, "XAyatanaLabel").toString(), title);
    QCOMPARE(itemProperty(item, "XAyatanaLabelGuide").toString(), QStringLiteral("WWW 10–10 WWW"));
    const QDBusArgument toolTipArgument = itemProperty(item, "ToolTip").value<QDBusArgument>();
    QCOMPARE(toolTipArgument.currentSignature(), QStringLiteral("(sa(iiay)ss)"));
    const auto toolTip = qdbus_cast<StatusNotifierToolTip>(toolTipArgument);
    QTEST(toolTip.title, "toolTipTitle");
    QCOMPARE(toolTip.description,
             QStringLiteral("Panama 0–2 England · 67′\n&lt;i&gt;Croatia&lt;/i&gt; 1–1 Ghana · 64′"));
    QTEST(m_labels, "labelSignals");
    // One tooltip signal per change of title, and one for the live matches.
    QFETCH(QStringList, labelSignals);
    QCOMPARE(m_toolTipSignals, labelSignals.size() + 1);

    // Hosts take a named icon over the pixmaps: the name goes while the pixmaps carry the score.
    QCOMPARE(itemProperty(item, "IconName").toString().isEmpty(), scoreShown);
    const QDBusArgument argument = itemProperty(item, "IconPixmap").value<QDBusArgument>();
    QCOMPARE(argument.currentSignature(), QStringLiteral("a(iiay)"));
    QList<int> sizes;
    for (const StatusNotifierIconPixmap &pixmap : qdbus_cast<StatusNotifierIconPixmaps>(argument)) {
        sizes.append(pixmap.width);
        QCOMPARE(pixmap.height, pixmap.width);
        QCOMPARE(pixmap.argb.size(), pixmap.width * pixmap.height * 4);
        // Network-order ARGB, with the corner clear.
        const QImage shown =
            scoreShown ? renderScoreIcon(title, pixmap.width) : renderStatusIcon(pixmap.width);
        const qsizetype centre = (qsizetype(pixmap.height / 2) * pixmap.width + pixmap.width / 2) * 4;
        const QRgb glyph = qFromBigEndian<quint32>(pixmap.argb.constData() + centre);
        QCOMPARE(glyph, shown.pixel(pixmap.width / 2, pixmap.height / 2));
        QCOMPARE(pixmap.argb.at(0), '\0');
        if (scoreShown)
            continue;
        // The glyph's centre is solid and legible on Breeze's light and dark panels (Plasma 5.27 and
        // older), for hosts that show these pixels rather than recolour the named icon.
        QCOMPARE(qAlpha(glyph), 255);
        for (const QRgb panel : {0xffeff0f1, 0xff2a2e32, 0xff31363b})
            QVERIFY2(contrast(glyph, panel) >= 3.0, qPrintable(QString::number(contrast(glyph, panel))));
    }
    QCOMPARE(sizes, QList<int>({16, 22, 24, 32, 48}));
}

void StatusNotifierTrayTest::labelHosts_data()
{
    QTest::addColumn<QString>("watcherProgram");
    QTest::addColumn<QString>("currentDesktop");
    QTest::addColumn<bool>("showsLabels");

    // clang-format off
    QTest::newRow("GNOME Shell's extension") << "gnome-shell" << "KDE" << true;
    QTest::newRow("Ayatana's indicator service") << "ayatana-indicator-application-service" << "MATE" << true;
    QTest::newRow("Plasma") << "kded5" << "GNOME" << false;
    QTest::newRow("unreadable, on Ubuntu's GNOME") << "" << "ubuntu:GNOME" << true;
    QTest::newRow("unreadable, on Plasma") << "" << "KDE" << false;
    // clang-format on
}

void StatusNotifierTrayTest::labelHosts()
{
    QFETCH(QString, watcherProgram);
    QFETCH(QString, currentDesktop);
    QTEST(hostShowsLabels(watcherProgram, currentDesktop), "showsLabels");
    QCOMPARE(ownerProgram(m_host, watcherService), QStringLiteral("status-notifier-watcher"));
}

void StatusNotifierTrayTest::hostCalls_data()
{
    QTest::addColumn<QString>("method"); // the menu's GetLayout, Event and EventGroup go to /MenuBar
    QTest::addColumn<QVariantList>("args");
    QTest::addColumn<bool>("scoresHidden");
    QTest::addColumn<QStringList>("answer"); // the signals fired, or the items GetLayout sent
    QTest::addColumn<QString>("error");

    const QStringList wholeMenu{
        "0 children-display=submenu",
        "1 enabled=true label=Open Pitchlark visible=true",
        "2 type=separator",
        "3 enabled=true label=Refresh Now shortcut=Control+r visible=true",
        "6 enabled=true label=Hide Scores toggle-state=0 toggle-type=checkmark visible=true",
        "4 type=separator",
        "5 enabled=true label=Quit Pitchlark shortcut=Control+q visible=true",
    };
    const QStringList all; // asking for no property by name asks for all of them
    const QVariant none = QVariant::fromValue(QDBusVariant(QString()));
    const auto grouped = [](int id) {
        return QVariantList{
            QVariant::fromValue(QList<DBusMenuEvent>{{id, "clicked", QDBusVariant(QString()), 0u}})};
    };
    const QString invalid = QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs");
    const QString unknown = QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod");
    // clang-format off
    QTest::newRow("click") << "Activate" << QVariantList{1840, 14} << false << QStringList{"activated(1840,14)"} << "";
    QTest::newRow("middle click refreshes") << "SecondaryActivate" << QVariantList{1840, 14} << false << QStringList{"refreshRequested"} << "";
    QTest::newRow("context menu is the host's") << "ContextMenu" << QVariantList{1840, 14} << false << QStringList{} << "";
    QTest::newRow("arguments of the wrong type") << "Activate" << QVariantList{"x", "y"} << false << QStringList{} << unknown;
    QTest::newRow("unknown method") << "Scroll" << QVariantList{120, "vertical"} << false << QStringList{} << unknown;
    QTest::newRow("whole menu") << "GetLayout" << QVariantList{0, -1, all} << false << wholeMenu << "";
    QTest::newRow("root alone") << "GetLayout" << QVariantList{0, 0, all} << false << QStringList{"0 children-display=submenu"} << "";
    QTest::newRow("one item") << "GetLayout" << QVariantList{3, -1, QStringList{"label", "shortcut"}} << false
                              << QStringList{"3 label=Refresh Now shortcut=Control+r"} << "";
    QTest::newRow("scores hidden: ticked") << "GetLayout" << QVariantList{6, -1, QStringList{"toggle-state"}} << true
                                           << QStringList{"6 toggle-state=1"} << "";
    QTest::newRow("layout of an unknown item") << "GetLayout" << QVariantList{42, -1, all} << false << QStringList{} << invalid;
    QTest::newRow("Open Pitchlark") << "Event" << QVariantList{1, "clicked", none, 0u} << false << QStringList{"activated(0,0)"} << "";
    QTest::newRow("Quit Pitchlark") << "Event" << QVariantList{5, "clicked", none, 0u} << false << QStringList{"quitRequested"} << "";
    QTest::newRow("hovering does nothing") << "Event" << QVariantList{3, "hovered", none, 0u} << false << QStringList{} << "";
    QTest::newRow("unknown menu item") << "Event" << QVariantList{99, "clicked", none, 0u} << false << QStringList{} << invalid;
    QTest::newRow("grouped click") << "EventGroup" << grouped(3) << false << QStringList{"refreshRequested"} << "";
    QTest::newRow("grouped unknown item") << "EventGroup" << grouped(-1) << false << QStringList{} << "idErrors -1";
    // clang-format on
}

void StatusNotifierTrayTest::hostCalls()
{
    QFETCH(QString, method);
    QFETCH(QVariantList, args);
    QFETCH(bool, scoresHidden);
    StatusNotifierTrayItem item;
    QSignalSpy layoutUpdated(item.findChild<DBusMenuExporter *>(), &DBusMenuExporter::LayoutUpdated);
    item.setScoresHidden(scoresHidden);
    // Hosts fetch the menu again when the check mark moves.
    QCOMPARE(layoutUpdated.count(), scoresHidden ? 1 : 0);
    QStringList answer;
    recordSignals(item, answer);
    const bool menu = method.startsWith(u"Event") || method == u"GetLayout";
    QDBusMessage call = QDBusMessage::createMethodCall(
        item.serviceName(), menu ? QStringLiteral("/MenuBar") : QStringLiteral("/StatusNotifierItem"),
        menu ? QStringLiteral("com.canonical.dbusmenu") : itemInterface, method);
    call.setArguments(args);
    const QDBusMessage reply = callHost(call);

    QString error = reply.errorName();
    if (method == u"GetLayout" && reply.type() == QDBusMessage::ReplyMessage) {
        QCOMPARE(reply.signature(), QStringLiteral("u(ia{sv}av)"));
        const auto root = qdbus_cast<DBusMenuLayout>(reply.arguments().at(1));
        QList<DBusMenuLayout> items{root};
        items.append(root.children);
        for (const DBusMenuLayout &menuItem : std::as_const(items)) {
            QStringList line{QString::number(menuItem.id)};
            for (auto [name, value] : menuItem.properties.asKeyValueRange()) {
                const QString text = value.canConvert<QDBusArgument>()
                                         ? qdbus_cast<DBusMenuShortcut>(value).value(0).join('+')
                                         : value.toString();
                line.append(name + '=' + text);
            }
            answer.append(line.join(' '));
        }
    }
    if (method == QLatin1String("EventGroup")) {
        const auto idErrors = qdbus_cast<QList<int>>(reply.arguments().value(0));
        if (!idErrors.isEmpty())
            error = QStringLiteral("idErrors %1").arg(idErrors.value(0));
    }
    QTEST(error, "error");
    QTEST(answer, "answer");
}

void StatusNotifierTrayTest::secondInstance_data()
{
    QTest::addColumn<QString>("first"); // "none", "here" (this process) or "stopped" (a SIGSTOPped process)
    QTest::addColumn<QString>("secondDoes");
    QTest::addColumn<int>("secondExitCode");
    QTest::addColumn<int>("toggles");
    QTest::addColumn<QString>("message"); // %1: the first instance's pid

    const QString hung = QStringLiteral("Pitchlark is running but not responding (pid %1).\n");
    // clang-format off
    QTest::newRow("second start toggles the first") << "here" << "start" << 0 << 1 << "";
    QTest::newRow("--toggle toggles the first") << "here" << "toggle" << 0 << 1 << "";
    QTest::newRow("nobody to toggle") << "none" << "toggle" << 1 << 0 << "Pitchlark is not running.\n";
    QTest::newRow("nobody there: the start is the instance") << "none" << "start" << 3 << 0 << "";
    QTest::newRow("first stopped: the start gives up") << "stopped" << "start" << 2 << 0 << hung;
    QTest::newRow("first stopped: --toggle says so") << "stopped" << "toggle" << 2 << 0 << hung;
    // clang-format on
}

void StatusNotifierTrayTest::secondInstance()
{
    QFETCH(QString, first);
    QFETCH(QString, secondDoes);
    QFETCH(QString, message);
    SingleInstance here;
    QTextStream quiet(stderr);
    if (first == u"here")
        QCOMPARE(here.claimOrHandOver(quiet), std::nullopt);
    QSignalSpy toggles(&here, &SingleInstance::toggleRequested);
    QProcess stopped;
    if (first == u"stopped") {
        stopped.start(QStringLiteral(SECOND_INSTANCE_BINARY), {QStringLiteral("serve")});
        QVERIFY(stopped.waitForReadyRead());
        QCOMPARE(stopped.readAllStandardOutput(), QByteArray("owner\n"));
        ::kill(pid_t(stopped.processId()), SIGSTOP);
    }

    // The first instance must keep serving the bus while the second one waits for its answer.
    QProcess second;
    second.start(QStringLiteral(SECOND_INSTANCE_BINARY), {secondDoes});
    QTRY_COMPARE_WITH_TIMEOUT(second.state(), QProcess::NotRunning, 2 * SingleInstance::toggleTimeoutMs);
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QTEST(second.exitCode(), "secondExitCode");
    QTEST(int(toggles.size()), "toggles");
    // The helper's own Qt warnings may follow; the message comes first.
    const QString said = QString::fromLocal8Bit(second.readAllStandardError());
    QCOMPARE(said.contains(u"Pitchlark"), !message.isEmpty());
    if (first == u"stopped")
        message = message.arg(stopped.processId());
    QVERIFY2(message.isEmpty() || said.startsWith(message), qPrintable(said));
    if (first == u"stopped") {
        // The name stayed with the stopped process: no second poller started.
        QCOMPARE(m_host.interface()->servicePid(QStringLiteral("com.pitchlark.Pitchlark")).value(),
                 uint(stopped.processId()));
        ::kill(pid_t(stopped.processId()), SIGKILL);
        stopped.waitForFinished();
    }
}

QTEST_MAIN(StatusNotifierTrayTest)
#include "StatusNotifierTrayTest.moc"
