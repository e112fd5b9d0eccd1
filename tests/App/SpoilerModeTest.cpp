#include "FeedServer.h"
#include "ModelFixture.h"
#include "StatusReport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

// Spoiler-free mode over the replayed tournament: at each moment, nothing the tray or `pitchlark
// status` shows gives a score away, and revealing one match reveals only that one.
class SpoilerModeTest : public QObject {
    Q_OBJECT

private slots:
    void nothingGivesAScoreAway_data();
    void nothingGivesAScoreAway();
    void revealingOneMatchRevealsOnlyIt();

private:
    // A model with scores hidden, holding what the replay service sends at that instant.
    std::unique_ptr<AppModel> modelAt(const QDateTime &at);

    FeedServer m_feed{Tournament::bundled(), TournamentClock::frozen(QDateTime::currentDateTimeUtc())};
    std::unique_ptr<ModelFixture> m_fixture;
};

namespace {

// "1–0" in the tray, "1 – 0" elsewhere.
const QRegularExpression scorePattern(QStringLiteral("\\d\\s?\u2013\\s?\\d"));

QString scoreIn(const QString &text)
{
    return scorePattern.match(text).captured();
}

} // namespace

std::unique_ptr<AppModel> SpoilerModeTest::modelAt(const QDateTime &at)
{
    m_fixture = std::make_unique<ModelFixture>();
    auto model = m_fixture->makeModel([at] { return at; });
    const Instant instant = instantFromDateTime(at);
    model->applyTeams(APITeamsResponse::decode(m_feed.body(FeedEndpoint::Teams, instant))->teams);
    model->applyGroups(APIGroupsResponse::decode(m_feed.body(FeedEndpoint::Groups, instant))->groups);
    model->applyMatches(APIGamesResponse::decode(m_feed.body(FeedEndpoint::Games, instant))->games, false);
    model->applySelectedDateFilter();
    model->setHideScores(true);
    return model;
}

void SpoilerModeTest::nothingGivesAScoreAway_data()
{
    QTest::addColumn<QDateTime>("at");
    QTest::addColumn<QString>("trayTitle");

    // The opening match, Mexico against South Africa, kicks off at 19:00 UTC on 11 June; Mexico
    // scores in the 9th minute, in its 13th at 19:12.
    const QDate opening(2026, 6, 11);
    // clang-format off
    QTest::newRow("live") << QDateTime(opening, QTime(19, 12), QTimeZone::utc()) << "🇲🇽 v 🇿🇦 · 13'";
    QTest::newRow("half time") << QDateTime(opening, QTime(19, 55), QTimeZone::utc()) << "🇲🇽 v 🇿🇦 · HT";
    QTest::newRow("finished") << QDateTime(opening, QTime(21, 30), QTimeZone::utc()) << "";
    // clang-format on
}

void SpoilerModeTest::nothingGivesAScoreAway()
{
    QFETCH(QDateTime, at);
    const auto model = modelAt(at);
    QTEST(model->trayTitle().value_or(QString()), "trayTitle");
    for (const Match &match : model->liveMatchesCache())
        QCOMPARE(scoreIn(model->trayLineFor(match)), QString());
    QCOMPARE(scoreIn(StatusReport::text(*model)), QString());
    QCOMPARE(scoreIn(QString::fromUtf8(StatusReport::waybar(*model))), QString());

    const QJsonObject report = StatusReport::json(*model);
    int played = 0;
    for (const QJsonValue &value : report.value(u"allMatches").toArray()) {
        const QJsonObject match = value.toObject();
        played += match.value(u"status").toString() != QLatin1StringView("scheduled");
        QVERIFY(match.value(u"scoreHidden").toBool());
        QVERIFY(match.value(u"homeScore").isNull() && match.value(u"awayScore").isNull());
        QVERIFY(match.value(u"homeScorers").toArray().isEmpty());
    }
    QVERIFY(played > 0);
    // Tables go alphabetically, with no numbers to read results from.
    const QJsonObject groupA = report.value(u"standings").toArray().first().toObject();
    QStringList names;
    for (const QJsonValue &row : groupA.value(u"standings").toArray()) {
        QVERIFY(!row.toObject().contains(u"points"));
        names.append(row.toObject().value(u"team").toString());
    }
    QStringList sorted = names;
    sorted.sort();
    QCOMPARE(names, sorted);
}

void SpoilerModeTest::revealingOneMatchRevealsOnlyIt()
{
    // Panama–England and Croatia–Ghana are both under way, each with a goal.
    const auto model = modelAt(QDateTime(QDate(2026, 6, 27), QTime(22, 40), QTimeZone::utc()));
    const QList<Match> live = model->liveMatchesCache();
    QCOMPARE(live.size(), 2);
    model->revealScore(live.at(0).id);

    QCOMPARE(scoreIn(model->trayLineFor(live.at(0))), scoreIn(live.at(0).trayMenuBarTitle()));
    QVERIFY(!scoreIn(live.at(0).trayMenuBarTitle()).isEmpty());
    QCOMPARE(scoreIn(model->trayLineFor(live.at(1))), QString());
    QCOMPARE(model->trayTitle(), std::optional(live.at(0).trayMenuBarTitle()));

    const QJsonArray reported = StatusReport::json(*model).value(u"liveMatches").toArray();
    QVERIFY(!reported.at(0).toObject().value(u"homeScore").isNull());
    QVERIFY(reported.at(1).toObject().value(u"homeScore").isNull());

    // Hidden again, it gives nothing away.
    model->concealScore(live.at(0).id);
    QCOMPARE(scoreIn(model->trayTitle().value_or(QString())), QString());
}

QTEST_GUILESS_MAIN(SpoilerModeTest)
#include "SpoilerModeTest.moc"
