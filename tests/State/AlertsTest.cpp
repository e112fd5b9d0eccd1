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
    void switchedOffThenOnDoesNotReplay();
    void bannersFollowTheirSwitch();

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
    QTest::addColumn<QList<QTime>>("fetches");
    QTest::addColumn<bool>("hideScores");
    QTest::addColumn<QStringList>("alertsOfLastFetch");

    const QTime before(18, 50);
    const QTime afterFirstGoal(19, 12);
    const QTime afterSecondGoal(20, 35);
    const QTime whistle(21, 30);
    // clang-format off
    QTest::newRow("first fetch only seeds") << QList{afterFirstGoal} << false << QStringList();
    QTest::newRow("kick-off and goal in one fetch") << QList{before, afterFirstGoal} << false
        << QStringList{"Kick-off: Mexico vs South Africa is underway.", "Goal!: Mexico 1 – 0 South Africa"};
    QTest::newRow("nothing new") << QList{afterFirstGoal, afterFirstGoal} << false << QStringList();
    QTest::newRow("second goal") << QList{afterFirstGoal, afterSecondGoal} << false << QStringList{"Goal!: Mexico 2 – 0 South Africa"};
    QTest::newRow("straight to full time, no goal alert") << QList{afterFirstGoal, whistle} << false
        << QStringList{"Full-time: Mexico 2 – 0 South Africa"};
    // With scores hidden, alerts say what happened but not the score.
    QTest::newRow("hidden: kick-off and goal") << QList{before, afterFirstGoal} << true
        << QStringList{"Kick-off: Mexico vs South Africa is underway.", "Goal!: A goal in Mexico v South Africa"};
    QTest::newRow("hidden: full time") << QList{afterFirstGoal, whistle} << true
        << QStringList{"Full-time: Full time: Mexico v South Africa"};
    // clang-format on
}

void AlertsTest::replayedMatchAlerts()
{
    QFETCH(QList<QTime>, fetches);
    QFETCH(bool, hideScores);
    m_model->setHideScores(hideScores);
    QStringList alerts;
    for (const QTime &at : fetches)
        alerts = applyCollectingAlerts(gamesAt(at.hour(), at.minute()));
    QTEST(alerts, "alertsOfLastFetch");
    if (!alerts.isEmpty())
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

void AlertsTest::switchedOffThenOnDoesNotReplay()
{
    m_model->alerts().setNotificationsEnabled(false);
    QCOMPARE(applyCollectingAlerts(gamesAt(18, 50)), QStringList());
    QCOMPARE(applyCollectingAlerts(gamesAt(19, 12)), QStringList());
    m_model->alerts().setNotificationsEnabled(true);
    QCOMPARE(applyCollectingAlerts(gamesAt(19, 20)), QStringList());
    QVERIFY(!m_model->activeBanner());
}

void AlertsTest::bannersFollowTheirSwitch()
{
    m_model->alerts().setInAppBanners(false);
    m_model->alerts().setNotifyMatchStart(false);
    applyCollectingAlerts(gamesAt(18, 50));
    QCOMPARE(applyCollectingAlerts(gamesAt(19, 12)), QStringList{"Goal!: Mexico 1 – 0 South Africa"});
    QVERIFY(!m_model->activeBanner());
}

QTEST_GUILESS_MAIN(AlertsTest)
#include "AlertsTest.moc"
