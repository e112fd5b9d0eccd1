#include "FeedServer.h"
#include "ModelFixture.h"

#include <QSignalSpy>
#include <QTest>

// Alerts across the replayed opening match, Mexico against South Africa (kick-off 19:00 UTC on 11 June,
// Mexico scoring in the 9th and 67th minutes), followed as Mexico's supporter.
class AlertsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void replayedMatchAlerts_data();
    void replayedMatchAlerts();
    void correctedScoreSaysNothing();

private:
    // The games the replay service sends at that moment of 11 June (UTC).
    QList<APIGame> gamesAt(int hour, int minute);
    QStringList applyCollectingAlerts(const QList<APIGame> &games);

    FeedServer m_feed{Tournament::bundled(), TournamentClock::frozen(QDateTime::currentDateTimeUtc())};
    std::unique_ptr<ModelFixture> m_fixture;
    std::unique_ptr<AppModel> m_model;
};

QList<APIGame> AlertsTest::gamesAt(int hour, int minute)
{
    const QDateTime at(QDate(2026, 6, 11), QTime(hour, minute), QTimeZone::utc());
    return APIGamesResponse::decode(m_feed.body(FeedEndpoint::Games, instantFromDateTime(at)))->games;
}

QStringList AlertsTest::applyCollectingAlerts(const QList<APIGame> &games)
{
    QSignalSpy raised(m_model.get(), &AppModel::alertRaised);
    m_model->applyMatches(games, true);
    QStringList alerts;
    for (const QList<QVariant> &alert : raised)
        alerts.append(alert.at(1).toString() + QStringLiteral(": ") + alert.at(2).toString());
    return alerts;
}

void AlertsTest::init()
{
    m_fixture = std::make_unique<ModelFixture>();
    m_model = m_fixture->makeModel();
    const QDateTime opening(QDate(2026, 6, 11), QTime(18, 0), QTimeZone::utc());
    m_model->applyTeams(
        APITeamsResponse::decode(m_feed.body(FeedEndpoint::Teams, instantFromDateTime(opening)))->teams);
    m_model->alerts().setNotificationsEnabled(true);
    m_model->toggleFavorite(QStringLiteral("1"));
}

void AlertsTest::replayedMatchAlerts_data()
{
    // Each step is a fetch at that time of 11 June (UTC), or one of the alert switches turned on or off.
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("hideScores");
    QTest::addColumn<QStringList>("alertsOfLastFetch");

    // clang-format off
    QTest::newRow("first fetch only seeds") << QStringList{"19:12"} << false << QStringList();
    QTest::newRow("kick-off and goal in one fetch") << QStringList{"18:50", "19:12"} << false
        << QStringList{"Kick-off: Mexico vs South Africa is underway.", "Goal!: Mexico 1 – 0 South Africa"};
    QTest::newRow("second goal") << QStringList{"19:12", "20:35"} << false << QStringList{"Goal!: Mexico 2 – 0 South Africa"};
    QTest::newRow("straight to full time, no goal alert") << QStringList{"19:12", "21:30"} << false
        << QStringList{"Full-time: Mexico 2 – 0 South Africa"};
    // With scores hidden, alerts say what happened but not the score.
    QTest::newRow("hidden: kick-off and goal") << QStringList{"18:50", "19:12"} << true
        << QStringList{"Kick-off: Mexico vs South Africa is underway.", "Goal!: A goal in Mexico v South Africa"};
    QTest::newRow("hidden: full time") << QStringList{"19:12", "21:30"} << true
        << QStringList{"Full-time: Full time: Mexico v South Africa"};
    QTest::newRow("switched off") << QStringList{"notificationsEnabled=off", "18:50", "19:12"} << false << QStringList();
    // What happened while alerts were off is not told once they are back on.
    QTest::newRow("switched off then on does not replay")
        << QStringList{"notificationsEnabled=off", "18:50", "19:12", "notificationsEnabled=on", "19:20"} << false
        << QStringList();
    QTest::newRow("no kick-off alert, no banners")
        << QStringList{"inAppBanners=off", "notifyMatchStart=off", "18:50", "19:12"} << false
        << QStringList{"Goal!: Mexico 1 – 0 South Africa"};
    // clang-format on
}

void AlertsTest::replayedMatchAlerts()
{
    QFETCH(QStringList, steps);
    QFETCH(bool, hideScores);
    m_model->setHideScores(hideScores);
    QStringList alerts;
    for (const QString &step : steps) {
        if (step.contains(u'='))
            QVERIFY(m_model->alerts().setProperty(step.section(u'=', 0, 0).toLatin1().constData(),
                                                  step.endsWith(u"on")));
        else
            alerts = applyCollectingAlerts(gamesAt(step.left(2).toInt(), step.right(2).toInt()));
    }
    QTEST(alerts, "alertsOfLastFetch");
    if (alerts.isEmpty() || !m_model->alerts().inAppBanners())
        QVERIFY(!m_model->activeBanner());
    else
        QCOMPARE(m_model->activeBanner()->title + QStringLiteral(": ") + m_model->activeBanner()->message,
                 alerts.constLast());
}

void AlertsTest::correctedScoreSaysNothing()
{
    applyCollectingAlerts(gamesAt(20, 35));
    QList<APIGame> corrected = gamesAt(20, 36);
    for (APIGame &game : corrected) {
        if (game.id == QLatin1StringView("1"))
            game.homeScore = QStringLiteral("1");
    }
    QCOMPARE(applyCollectingAlerts(corrected), QStringList());
}

QTEST_GUILESS_MAIN(AlertsTest)
#include "AlertsTest.moc"
