#include "FeedServer.h"
#include "ModelFixture.h"
#include "Models/BracketSlot.h"
#include "State/KnockoutOutcomes.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTest>

#include <QCoro/QCoroTask>

#include <algorithm>

// Knockout outcomes, the bracket and the days without matches, as the model derives them from the
// replayed tournament over real HTTP, against the real results.
class KnockoutTest : public QObject {
    Q_OBJECT

private slots:
    void knockoutsAndDaysAgainstTheRealResults_data();
    void knockoutsAndDaysAgainstTheRealResults();
    void shootOutWinnerOnlyOnceTheNextRoundNamesIt();

private:
    std::unique_ptr<AppModel> modelAt(const QDateTime &instant);

    std::unique_ptr<FeedServer> m_feed;
    std::unique_ptr<ModelFixture> m_fixture;
};

namespace {

struct KnockoutResult {
    QSet<QString> sides; // FIFA codes
    QString ending;      // "ft", "aet" or "pens"
    QString winner;
};

QHash<int, KnockoutResult> realResults()
{
    QHash<int, KnockoutResult> results;
    QFile file(QStringLiteral(PITCHLARK_STATE_TEST_DATA "/knockout-results.txt"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return results;
    while (!file.atEnd()) {
        const QStringList fields = QString::fromUtf8(file.readLine()).split(u' ', Qt::SkipEmptyParts);
        if (fields.size() == 5 && !fields.constFirst().startsWith(u'#'))
            results.insert(fields[0].toInt(), {{fields[1], fields[2]}, fields[3], fields[4].trimmed()});
    }
    return results;
}

QString codeOf(const Match &match, const QString &teamID)
{
    return teamID == match.homeTeamID ? match.homeCode : match.awayCode;
}

QDateTime utc(const char *text)
{
    return QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate);
}

} // namespace

std::unique_ptr<AppModel> KnockoutTest::modelAt(const QDateTime &instant)
{
    m_feed = std::make_unique<FeedServer>(Tournament::bundled(), TournamentClock::frozen(instant));
    const quint16 port = m_feed->listen();
    m_fixture = std::make_unique<ModelFixture>(QStringLiteral("http://127.0.0.1:%1").arg(port));
    auto model = m_fixture->makeModel([instant] { return instant; });
    QCoro::waitFor(model->fetchAll());
    return model;
}

void KnockoutTest::knockoutsAndDaysAgainstTheRealResults_data()
{
    QTest::addColumn<QDateTime>("at");
    QTest::addColumn<int>("finishedKnockouts");
    QTest::addColumn<int>("decidedFirstRoundSides");
    QTest::addColumn<int>("currentRound");
    QTest::addColumn<QString>("day");
    QTest::addColumn<QStringList>("dayFacts"); // kind, countdown, previous day, next day, champion

    // The test runs in UTC; the 07-07 late games end before midnight, the next kick-off is on 07-09.
    // clang-format off
    QTest::newRow("weeks before the tournament") << utc("2026-06-01T09:00:00Z") << 0 << 0 << 0 << "2026-06-01"
        << QStringList{"beforeTournament", "Opening match in 10 days", "", "2026-06-11", ""};
    QTest::newRow("hours before the opening") << utc("2026-06-11T15:30:00Z") << 0 << 0 << 0 << "2026-06-10"
        << QStringList{"beforeTournament", "Opening match in 3 h 30 min", "", "2026-06-11", ""};
    QTest::newRow("group stage over") << utc("2026-06-28T06:00:00Z") << 0 << 32 << 0 << "2026-06-28"
        << QStringList{"matchDay", "", "", "", ""};
    QTest::newRow("round of 16 over, a rest day") << utc("2026-07-07T23:30:00Z") << 24 << 32 << 2 << "2026-07-08"
        << QStringList{"restDay", "", "2026-07-07", "2026-07-09", ""};
    QTest::newRow("final in play") << utc("2026-07-19T20:00:00Z") << 31 << 32 << 4 << "2026-07-19"
        << QStringList{"matchDay", "", "", "", ""};
    QTest::newRow("tournament over") << utc("2026-07-20T00:00:00Z") << 32 << 32 << 4 << "2026-07-20"
        << QStringList{"afterTournament", "", "2026-07-19", "", "Spain"};
    // clang-format on
}

// The outcomes of the finished knockouts, the bracket drawn from the feed's links, and what a day
// without matches says, at each instant.
void KnockoutTest::knockoutsAndDaysAgainstTheRealResults()
{
    QFETCH(QDateTime, at);
    QFETCH(int, finishedKnockouts);
    QFETCH(int, decidedFirstRoundSides);
    const QHash<int, KnockoutResult> truth = realResults();
    QCOMPARE(truth.size(), 32);
    const auto model = modelAt(at);

    int finished = 0;
    for (const Match &match : model->allMatches()) {
        if (!match.isKnockout())
            continue;
        const QString name = QString::number(match.matchNumber);
        if (match.status != MatchStatus::finished) {
            QVERIFY2(!match.winnerTeamID && !match.wentToExtraTime && !match.decidedOnPenalties,
                     qPrintable(name));
            continue;
        }
        ++finished;
        const KnockoutResult real = truth.value(match.matchNumber);
        QCOMPARE(QSet<QString>({match.homeCode, match.awayCode}), real.sides);
        QVERIFY2(match.winnerTeamID, qPrintable(name));
        QCOMPARE(codeOf(match, *match.winnerTeamID), real.winner);
        QCOMPARE(match.decidedOnPenalties, real.ending == QLatin1StringView("pens"));
        QCOMPARE(match.wentToExtraTime, real.ending != QLatin1StringView("ft"));
    }
    QCOMPARE(finished, finishedKnockouts);
    const KnockoutBracket &bracket = model->bracket();
    QCOMPARE(bracket.championTeamID().has_value(), finishedKnockouts == 32);
    if (bracket.championTeamID())
        QCOMPARE(bracket.championName(), QStringLiteral("Spain"));

    QStringList shape;
    for (const BracketRound &round : bracket.rounds)
        shape << QStringLiteral("%1 %2").arg(round.title).arg(round.games.size());
    QCOMPARE(shape.join(QStringLiteral(", ")),
             QStringLiteral("Round of 32 16, Round of 16 8, Quarter-finals 4, Semi-finals 2, Final 1"));
    QCOMPARE(bracket.placementGames.size(), 1);
    QCOMPARE(bracket.placementGames.constFirst().round, QStringLiteral("THIRD"));
    QTEST(bracket.currentRound, "currentRound");

    // Games 2i and 2i+1 of a round feed game i of the next, in home-then-away order.
    for (qsizetype r = 0; r + 1 < bracket.rounds.size(); ++r) {
        const QList<Match> &games = bracket.rounds[r].games;
        const QList<Match> &next = bracket.rounds[r + 1].games;
        for (qsizetype i = 0; i < games.size(); ++i) {
            const Match &fed = next[i / 2];
            const QString slot = i % 2 == 0 ? fed.homeSlotLabel : fed.awaySlotLabel;
            QCOMPARE(BracketSlot::linkedMatchNumber(slot, BracketSlot::Link::winner), games[i].matchNumber);
        }
    }

    int decided = 0;
    for (const Match &game : bracket.rounds.constFirst().games) {
        for (const QString &teamID : {game.homeTeamID, game.awayTeamID})
            decided += BracketSlot::isDecidedSide(teamID) ? 1 : 0;
        if (!BracketSlot::isDecidedSide(game.homeTeamID)) {
            QCOMPARE(game.homeTeam, game.homeSlotLabel); // "Winner Group E" until the group is over
            // A placeholder is no team: it cannot be followed.
            QVERIFY(!model->canFollow(game.homeTeamID));
            model->toggleFavorite(game.homeTeamID);
            QVERIFY(model->favoriteTeamIDs().isEmpty());
        }
    }
    QCOMPARE(decided, decidedFirstRoundSides);

    // Another feed order draws the same tree.
    QList<Match> shuffled = model->allMatches();
    std::shuffle(shuffled.begin(), shuffled.end(), *QRandomGenerator::global());
    QCOMPARE(KnockoutBracket::from(shuffled).rounds, bracket.rounds);

    QFETCH(QString, day);
    const DayFacts facts = model->dayFacts(day);
    QTEST(QStringList(
              {facts.kind, facts.countdown, facts.previousDateKey, facts.nextDateKey, facts.championName}),
          "dayFacts");
    if (facts.kind == QLatin1StringView("afterTournament"))
        QCOMPARE(facts.finalMatch->scorelineDisplay(), QStringLiteral("1 – 0"));
    if (facts.kind == QLatin1StringView("beforeTournament"))
        QCOMPARE(facts.openingMatch->homeCode, QStringLiteral("MEX"));
}

void KnockoutTest::shootOutWinnerOnlyOnceTheNextRoundNamesIt()
{
    const auto model = modelAt(utc("2026-07-20T00:00:00Z"));
    QList<Match> matches = model->allMatches();
    const auto numbered = [&matches](int number) {
        return std::find_if(matches.begin(), matches.end(),
                            [number](const Match &match) { return match.matchNumber == number; });
    };
    // The real service may send a finished shoot-out before it fills the next round's slot.
    Match &roundOf16 = *numbered(89);
    QCOMPARE(roundOf16.homeSlotLabel, QStringLiteral("Winner Match 74"));
    roundOf16.homeTeamID = QStringLiteral("0");
    // A final level after extra time: the feed would not say who won it.
    numbered(104)->awayScore = numbered(104)->homeScore;
    KnockoutOutcomes::derive(matches);

    const Match &shootOut = *numbered(74);
    QVERIFY(shootOut.decidedOnPenalties);
    QVERIFY(!shootOut.winnerTeamID);
    QCOMPARE(shootOut.kickoffDetailLabel(), QStringLiteral("Decided on penalties"));
    QVERIFY(numbered(104)->decidedOnPenalties);
    QVERIFY(!KnockoutBracket::from(matches).championTeamID());
}

QTEST_GUILESS_MAIN(KnockoutTest)
#include "KnockoutTest.moc"
