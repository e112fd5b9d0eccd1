#include "FakeDesktopPortal.h"
#include "ModelFixture.h"
#include "Notifications/FreedesktopNotificationSender.h"

#include <QDBusConnection>
#include <QSignalSpy>
#include <QTest>

// Alerts reach a notification server on a private session bus (CTest runs this under dbus-run-session).
// No real server can run without a display, so this stand-in owns org.freedesktop.Notifications on a
// connection of its own, records each call, answers with ids as servers do, and reports clicks and
// closes with the same signals.
class NotificationServer : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Received {
        QString appName;
        uint replacesID;
        QString appIcon;
        QString summary;
        QString body;
        QStringList actions;
        QVariantMap hints;
        uint id;
    };
    QList<Received> received;

    bool publish()
    {
        return m_bus.registerObject(m_path, this, QDBusConnection::ExportAllSlots) &&
               m_bus.registerService(m_interface);
    }
    // The user clicks the notification (actionKey "default") or one of its buttons.
    void invoke(uint id, const QString &actionKey)
    {
        emitSignal(QStringLiteral("ActionInvoked"), {id, actionKey});
    }
    // The user dismisses it (reason 2).
    void close(uint id) { emitSignal(QStringLiteral("NotificationClosed"), {id, 2u}); }

public slots:
    uint Notify(const QString &appName, uint replacesID, const QString &appIcon, const QString &summary,
                const QString &body, const QStringList &actions, const QVariantMap &hints, int)
    {
        const uint id = replacesID != 0 ? replacesID : ++m_lastID;
        received.append({appName, replacesID, appIcon, summary, body, actions, hints, id});
        return id;
    }
    QStringList GetCapabilities() { return {QStringLiteral("body"), QStringLiteral("actions")}; }

private:
    void emitSignal(const QString &name, const QVariantList &arguments)
    {
        QDBusMessage message = QDBusMessage::createSignal(m_path, m_interface, name);
        message.setArguments(arguments);
        m_bus.send(message);
    }

    const QString m_path = QStringLiteral("/org/freedesktop/Notifications");
    const QString m_interface = QStringLiteral("org.freedesktop.Notifications");
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("server"));
    uint m_lastID = 0;
};

class NotificationsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { m_server.received.clear(); }
    void oneNotificationPerMatch();
    void clickOpensTheMatchPage();
    void sandboxedAlertGoesThroughThePortal();

private:
    NotificationServer m_server;
    FakeDesktopPortal m_portal;
};

namespace {

MatchNotification goalIn(const QString &matchID, const QString &body)
{
    return {matchID, BannerState::Kind::goal, QStringLiteral("Goal!"), body};
}

} // namespace

void NotificationsTest::initTestCase()
{
    QVERIFY2(QDBusConnection::sessionBus().isConnected(), "no session bus: run under dbus-run-session");
    QVERIFY(m_server.publish());
    QVERIFY(m_portal.publish());
}

// What each notification carries, and that a match's alerts replace one another until the user closes it.
void NotificationsTest::oneNotificationPerMatch()
{
    FreedesktopNotificationSender sender;
    const auto sendAndWait = [this, &sender](const QString &matchID, const QString &body) {
        const qsizetype before = m_server.received.size();
        sender.send(goalIn(matchID, body));
        if (!QTest::qWaitFor([&] { return m_server.received.size() > before; }))
            return decltype(m_server.received)::value_type{}; // an empty record fails the comparisons below
        // The server's answer carries the id that the match's next notification replaces.
        QTest::qWait(50);
        return m_server.received.value(before);
    };
    const QString plain = QStringLiteral("Mexico 1 – 0 South Africa");
    const auto first = sendAndWait(QStringLiteral("1"), QStringLiteral("Trinidad & Tobago <b>1</b> – 0 >"));
    QCOMPARE(first.appName, QStringLiteral("Pitchlark"));
    QCOMPARE(first.appIcon, QStringLiteral("com.pitchlark.Pitchlark"));
    QCOMPARE(first.summary, QStringLiteral("Goal!"));
    // Servers read the body as markup.
    QCOMPARE(first.body, QStringLiteral("Trinidad &amp; Tobago &lt;b&gt;1&lt;/b&gt; – 0 &gt;"));
    QCOMPARE(first.actions.value(0), QStringLiteral("default"));
    QCOMPARE(first.hints.value(QStringLiteral("desktop-entry")).toString(),
             QStringLiteral("com.pitchlark.Pitchlark"));
    QCOMPARE(first.hints.value(QStringLiteral("category")).toString(), QStringLiteral("x-pitchlark.goal"));
    QCOMPARE(first.hints.value(QStringLiteral("sound-name")).toString(),
             QStringLiteral("message-new-instant"));
    QCOMPARE(first.replacesID, 0u);

    QCOMPARE(sendAndWait(QStringLiteral("1"), plain).replacesID, first.id);
    QCOMPARE(sendAndWait(QStringLiteral("2"), plain).replacesID, 0u);
    // Once the user has closed it, the match's next alert is a new notification.
    m_server.close(first.id);
    QTest::qWait(100);
    QCOMPARE(sendAndWait(QStringLiteral("1"), plain).replacesID, 0u);
}

void NotificationsTest::clickOpensTheMatchPage()
{
    ModelFixture fixture;
    const auto model = fixture.makeModel({}, std::make_unique<FreedesktopNotificationSender>());
    model->alerts().setNotificationsEnabled(true);
    model->toggleFavorite(QStringLiteral("1"));
    const auto games = [](const char *elapsed, const char *homeScore) {
        return APIGamesResponse::decode(QStringLiteral(R"([{"id":"1","home_team_id":"1","away_team_id":"2",
            "home_team_name_en":"Mexico","away_team_name_en":"South Africa","time_elapsed":"%1","home_score":"%2"},
            {"id":"2","home_team_id":"3","away_team_id":"4","time_elapsed":"notstarted"}])")
                                            .arg(QLatin1StringView(elapsed), QLatin1StringView(homeScore))
                                            .toUtf8())
            ->games;
    };
    model->applyMatches(games("notstarted", "0"), true);
    model->applyMatches(games("9", "1"), true);
    QTRY_COMPARE(m_server.received.size(), 2);
    QCOMPARE(m_server.received.at(0).summary, QStringLiteral("Kick-off"));
    QCOMPARE(m_server.received.at(1).summary, QStringLiteral("Goal!"));

    model->navigation().open(PanelRoute::match(QStringLiteral("2")));
    QSignalSpy panelRequested(model.get(), &AppModel::panelRequested);
    // A click on another program's notification is none of Pitchlark's business.
    m_server.invoke(m_server.received.at(1).id + 100, QStringLiteral("default"));
    m_server.invoke(m_server.received.at(1).id, QStringLiteral("default"));
    QTRY_COMPARE(panelRequested.size(), 1);
    QCOMPARE(model->navigation().detailStack().constLast(), PanelRoute::match(QStringLiteral("1")));
}

void NotificationsTest::sandboxedAlertGoesThroughThePortal()
{
    FreedesktopNotificationSender sender(FreedesktopNotificationSender::Route::portal);
    QSignalSpy activated(&sender, &NotificationSender::activated);
    sender.send(goalIn(QStringLiteral("7"), QStringLiteral("Trinidad & Tobago 1 – 0")));
    QTRY_COMPARE(m_portal.notifications.size(), 1);
    const auto &[identifier, notification] = m_portal.notifications.constFirst();
    QCOMPARE(identifier, QStringLiteral("match-7"));
    QCOMPARE(notification.value(QStringLiteral("title")).toString(), QStringLiteral("Goal!"));
    // The portal shows plain text, so nothing is escaped.
    QCOMPARE(notification.value(QStringLiteral("body")).toString(),
             QStringLiteral("Trinidad & Tobago 1 – 0"));
    QCOMPARE(notification.value(QStringLiteral("default-action")).toString(),
             QStringLiteral("app.show-match"));
    QVERIFY(m_server.received.isEmpty());

    m_portal.invokeAction(identifier, notification.value(QStringLiteral("default-action")).toString(),
                          notification.value(QStringLiteral("default-action-target")));
    QTRY_COMPARE(activated.size(), 1);
    QCOMPARE(activated.constFirst().constFirst().toString(), QStringLiteral("7"));
}

QTEST_GUILESS_MAIN(NotificationsTest)
#include "NotificationsTest.moc"
