#include "FakeDesktopPortal.h"
#include "ModelFixture.h"
#include "Notifications/FreedesktopNotificationSender.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QRegularExpression>
#include <QTest>

// Alerts reach a real notification server on a private session bus: CTest runs this under
// dbus-run-session, and the test itself owns org.freedesktop.Notifications there.
class NotificationServer : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Received {
        QString appName;
        uint replacesID;
        QString summary;
        QString body;
        QVariantMap hints;
    };
    QList<Received> received;

public slots:
    uint Notify(const QString &appName, uint replacesID, const QString &, const QString &summary,
                const QString &body, const QStringList &, const QVariantMap &hints, int)
    {
        received.append({appName, replacesID, summary, body, hints});
        return uint(received.size());
    }
    QStringList GetCapabilities() { return {QStringLiteral("body"), QStringLiteral("body-markup")}; }
};

class NotificationsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { m_server.received.clear(); }
    void notificationFields_data();
    void notificationFields();
    void modelAlertReachesServer();
    void sandboxedAlertGoesThroughThePortal();

private:
    NotificationServer m_server;
    FakeDesktopPortal m_portal;
};

void NotificationsTest::initTestCase()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    QVERIFY2(bus.isConnected(), "no session bus: run under dbus-run-session");
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/Notifications"), &m_server,
                               QDBusConnection::ExportAllSlots));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.Notifications")));
    QVERIFY(m_portal.publish());
}

void NotificationsTest::notificationFields_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("sentBody");

    // clang-format off
    QTest::newRow("plain") << "Mexico 1 – 0 South Africa" << "Mexico 1 – 0 South Africa";
    QTest::newRow("markup escaped") << "Trinidad & Tobago <b>1</b> > 0" << "Trinidad &amp; Tobago &lt;b&gt;1&lt;/b&gt; &gt; 0";
    // clang-format on
}

void NotificationsTest::notificationFields()
{
    QFETCH(QString, body);
    FreedesktopNotificationSender sender;
    sender.send(QStringLiteral("1-Goal!-AB12"), QStringLiteral("Goal!"), body);
    sender.send(QStringLiteral("1-Goal!-CD34"), QStringLiteral("Goal!"), body);
    QTRY_COMPARE(m_server.received.size(), 2);

    // Both reach the server, in whichever order the bus delivers them.
    QStringList requestIDs;
    for (const NotificationServer::Received &notification : std::as_const(m_server.received)) {
        QCOMPARE(notification.appName, QStringLiteral("Pitchlark"));
        QCOMPARE(notification.summary, QStringLiteral("Goal!"));
        QTEST(notification.body, "sentBody");
        QCOMPARE(notification.hints.value(QStringLiteral("sound-name")).toString(),
                 QStringLiteral("message-new-instant"));
        QCOMPARE(notification.hints.value(QStringLiteral("desktop-entry")).toString(),
                 QStringLiteral("com.pitchlark.Pitchlark"));
        // Two events of one kind are two notifications: neither replaces the other.
        QCOMPARE(notification.replacesID, 0u);
        requestIDs.append(notification.hints.value(QStringLiteral("x-pitchlark-request-id")).toString());
    }
    requestIDs.sort();
    QCOMPARE(requestIDs, QStringList({"1-Goal!-AB12", "1-Goal!-CD34"}));
}

void NotificationsTest::modelAlertReachesServer()
{
    ModelFixture fixture;
    const auto model = fixture.makeModel({}, std::make_unique<FreedesktopNotificationSender>());
    model->setNotificationsEnabled(true);
    model->toggleFavorite(QStringLiteral("1"));
    const auto games = [](const char *elapsed, const char *homeScore) {
        return APIGamesResponse::decode(QStringLiteral(R"([{"id":"1","home_team_id":"1","away_team_id":"2",
            "home_team_name_en":"Mexico","away_team_name_en":"South Africa","time_elapsed":"%1","home_score":"%2"}])")
                                            .arg(QLatin1StringView(elapsed), QLatin1StringView(homeScore))
                                            .toUtf8())
            ->games;
    };
    model->applyMatches(games("notstarted", "0"), true);
    model->applyMatches(games("9", "1"), true);

    QTRY_COMPARE(m_server.received.size(), 2);
    QCOMPARE(m_server.received.at(0).summary, QStringLiteral("Kick-off"));
    QCOMPARE(m_server.received.at(0).body, QStringLiteral("Mexico vs South Africa is underway."));
    QCOMPARE(m_server.received.at(1).summary, QStringLiteral("Goal!"));
    const QString requestID =
        m_server.received.at(1).hints.value(QStringLiteral("x-pitchlark-request-id")).toString();
    QVERIFY2(QRegularExpression(QStringLiteral("^1-Goal!-[0-9A-F]{4}$")).match(requestID).hasMatch(),
             qPrintable(requestID));
}

void NotificationsTest::sandboxedAlertGoesThroughThePortal()
{
    FreedesktopNotificationSender sender(FreedesktopNotificationSender::Route::portal);
    sender.send(QStringLiteral("1-Goal!-AB12"), QStringLiteral("Goal!"),
                QStringLiteral("Trinidad & Tobago 1 – 0"));
    QTRY_COMPARE(m_portal.notifications.size(), 1);
    const auto &[identifier, notification] = m_portal.notifications.constFirst();
    QCOMPARE(identifier, QStringLiteral("1-Goal!-AB12"));
    QCOMPARE(notification.value(QStringLiteral("title")).toString(), QStringLiteral("Goal!"));
    // The portal shows plain text, so nothing is escaped.
    QCOMPARE(notification.value(QStringLiteral("body")).toString(),
             QStringLiteral("Trinidad & Tobago 1 – 0"));
    QVERIFY(m_server.received.isEmpty());
}

QTEST_GUILESS_MAIN(NotificationsTest)
#include "NotificationsTest.moc"
