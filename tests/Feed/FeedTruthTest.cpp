#include "FeedTestSupport.h"
#include "GroupTable.h"

#include "Models/APIResponses.h"
#include "State/Normalization.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

// The replayed tournament against the real one, read over HTTP by the app's own decoders and
// normalisation: what a fan saw at chosen moments, and the final tables and scores; and the ranking
// that makes the replay's tables.
class FeedTruthTest : public QObject {
    Q_OBJECT

private slots:
    void theTournamentAfterTheFinal();
    void momentsAsFansSawThem_data();
    void momentsAsFansSawThem();
    void groupRanking_data();
    void groupRanking();
};

namespace {

struct Tables {
    TeamTable teams;
    StadiumTable stadiums;
};

Tables fetchTables(const FrozenFeed &feed)
{
    Tables tables;
    const auto teams = APITeamsResponse::decode(feed.get(QStringLiteral("/get/teams")).body);
    const auto stadiums = APIStadiumsResponse::decode(feed.get(QStringLiteral("/get/stadiums")).body);
    if (!teams || !stadiums)
        return tables;
    for (const APITeam &team : teams->teams)
        tables.teams.insert(team.id, team);
    for (const APIStadium &stadium : stadiums->stadiums)
        tables.stadiums.insert(stadium.id, stadium);
    return tables;
}

QList<Match> fetchMatches(const FrozenFeed &feed, const Tables &tables)
{
    const auto games = APIGamesResponse::decode(feed.get(QStringLiteral("/get/games")).body);
    if (!games)
        return {};
    QList<Match> matches;
    for (const APIGame &game : games->games)
        matches.append(Normalization::normalizeMatch(game, tables.teams, tables.stadiums));
    return matches;
}

Match matchWithID(const QList<Match> &matches, const QString &id)
{
    for (const Match &match : matches) {
        if (match.id == id)
            return match;
    }
    return {};
}

} // namespace

// Every kick-off, final score and group table against the real ones.
void FeedTruthTest::theTournamentAfterTheFinal()
{
    FrozenFeed feed("2026-07-20T00:00:00Z");
    QVERIFY(feed.isListening());
    const Tables tables = fetchTables(feed);
    const QList<Match> matches = fetchMatches(feed, tables);
    QCOMPARE(matches.size(), 104);
    // The feed sends venue-local dates; the app must come back to the same instants.
    const Tournament &tournament = Tournament::bundled();
    for (qsizetype index = 0; index < matches.size(); ++index)
        QCOMPARE(matches[index].kickoffDate, dateTimeFromInstant(tournament.games[index].kickoff));
    // Brazil-Haiti was moved to 20:30 in Philadelphia after the service's seed was made.
    QCOMPARE(matchWithID(matches, QStringLiteral("29")).kickoffDate,
             QDateTime(QDate(2026, 6, 20), QTime(0, 30), Qt::UTC));

    QFile results(QStringLiteral(PITCHLARK_FEED_TEST_DATA "/final-scores.txt"));
    QVERIFY(results.open(QIODevice::ReadOnly | QIODevice::Text));
    static const QRegularExpression line(QStringLiteral(R"(^(\S+) (\w+) (\d+)-(\d+) (\w+)$)"));
    int checked = 0;
    while (!results.atEnd()) {
        const QString text = QString::fromUtf8(results.readLine()).trimmed();
        const QRegularExpressionMatch result = line.match(text);
        if (text.startsWith(u'#') || !result.hasMatch())
            continue;
        // Venues are west of UTC, so an evening kick-off falls on the next UTC day.
        const QDate localDate = QDate::fromString(result.captured(1), Qt::ISODate);
        const auto found = std::find_if(matches.cbegin(), matches.cend(), [&](const Match &match) {
            const QDate utcDate = match.kickoffDate.toUTC().date();
            return QSet<QString>{match.homeCode, match.awayCode} ==
                       QSet<QString>{result.captured(2), result.captured(5)} &&
                   (utcDate == localDate || utcDate == localDate.addDays(1));
        });
        QVERIFY2(found != matches.cend(), qPrintable(text));
        QCOMPARE(found->status, MatchStatus::finished);
        const bool sameWay = found->homeCode == result.captured(2);
        const int first = result.captured(3).toInt();
        const int second = result.captured(4).toInt();
        QCOMPARE(found->homeScore, sameWay ? first : second);
        QCOMPARE(found->awayScore, sameWay ? second : first);
        ++checked;
    }
    QCOMPARE(checked, 104);

    // FIFA code, points and goal difference in final order, and the groups in the live service's order.
    const QStringList realTables{
        "ESP 7 5, CPV 3 0, URU 2 -1, KSA 2 -4",  "FRA 9 8, NOR 6 1, SEN 3 2, IRQ 0 -11",
        "USA 6 4, AUS 4 0, PAR 4 -2, TUR 3 -2",  "GER 6 6, CIV 6 2, ECU 4 0, CUW 1 -8",
        "NED 7 6, JPN 5 4, SWE 4 0, TUN 0 -10",  "BEL 5 4, EGY 5 2, IRN 3 0, NZL 1 -6",
        "MEX 9 6, RSA 4 -1, KOR 3 -1, CZE 1 -4", "SUI 7 4, CAN 4 5, BIH 4 -1, QAT 1 -8",
        "ENG 7 4, CRO 6 0, GHA 4 0, PAN 0 -4",   "COL 7 3, POR 5 5, COD 4 1, UZB 0 -9",
        "BRA 7 6, MAR 7 3, SCO 3 -3, HAI 0 -6",  "ARG 9 7, AUT 4 0, ALG 4 -2, JOR 0 -5"};
    const auto groups = APIGroupsResponse::decode(feed.get(QStringLiteral("/get/groups")).body);
    QVERIFY(groups);
    QCOMPARE(groups->groups.size(), realTables.size());
    for (qsizetype index = 0; index < realTables.size(); ++index) {
        const APIGroup &sent = groups->groups.at(index);
        QCOMPARE(sent.group, QStringLiteral("HIDEFGABLKCJ").at(index));
        QStringList sentRows;
        for (const APIStandingTeam &row : sent.teams)
            sentRows.append(QStringLiteral("%1 %2 %3")
                                .arg(tables.teams[row.teamID].fifaCode, row.points, row.goalDifference));
        QCOMPARE(sentRows.join(QStringLiteral(", ")), realTables.at(index));
        // The app ranks the rows itself; it must come to the same order.
        QStringList shownRows;
        for (const StandingRow &row : Normalization::normalizeStanding(sent, tables.teams).standings)
            shownRows.append(
                QStringLiteral("%1 %2 %3").arg(row.code).arg(row.points).arg(row.goalDifference));
        QCOMPARE(shownRows, sentRows);
    }
}

void FeedTruthTest::momentsAsFansSawThem_data()
{
    QTest::addColumn<QByteArray>("instant");
    QTest::addColumn<QString>("gameID");
    QTest::addColumn<MatchStatus>("status");
    QTest::addColumn<QString>("home");
    QTest::addColumn<QString>("away");
    QTest::addColumn<QString>("score");
    QTest::addColumn<QString>("clock");
    QTest::addColumn<QStringList>("scorers"); // home then away

    // The opening game before kick-off and at full time, a finished shoot-out and the knockout sides at
    // each stage are checked in AlertsTest, StatusCommandTest and KnockoutTest.
    const auto none = QStringList();
    // clang-format off
    QTest::newRow("opening game, first half")
        << QByteArray("2026-06-11T19:30:00Z") << "1" << MatchStatus::inPlay << "Mexico" << "South Africa" << "1 – 0" << "31'" << QStringList{"J. Quiñones 9'"};
    QTest::newRow("opening game, half-time")
        << QByteArray("2026-06-11T19:55:00Z") << "1" << MatchStatus::halfTime << "Mexico" << "South Africa" << "1 – 0" << "" << QStringList{"J. Quiñones 9'"};
    QTest::newRow("third-placed side waits for the whole group stage")
        << QByteArray("2026-06-28T01:00:00Z") << "74" << MatchStatus::scheduled << "Germany" << "3rd Group A/B/C/D/F" << "– – –" << "" << none;
    QTest::newRow("the feeder's penalty shoot-out")
        << QByteArray("2026-06-29T23:12:00Z") << "74" << MatchStatus::inPlay << "Germany" << "Paraguay" << "1 – 1" << "" << QStringList{"K. Havertz 54'", "J. Enciso 42'"};
    QTest::newRow("winner's slot after its feeder")
        << QByteArray("2026-06-30T00:00:00Z") << "89" << MatchStatus::scheduled << "Paraguay" << "Winner Match 77" << "– – –" << "" << none;
    QTest::newRow("the final in extra time")
        << QByteArray("2026-07-19T21:25:00Z") << "104" << MatchStatus::inPlay << "Spain" << "Argentina" << "1 – 0" << "113'" << QStringList{"F. Torres 106'"};
    // clang-format on
}

void FeedTruthTest::momentsAsFansSawThem()
{
    QFETCH(QByteArray, instant);
    QFETCH(QString, gameID);

    FrozenFeed feed(instant.constData());
    QVERIFY(feed.isListening());
    const Match match = matchWithID(fetchMatches(feed, fetchTables(feed)), gameID);
    QCOMPARE(match.id, gameID);
    QTEST(match.status, "status");
    QTEST(match.homeTeam, "home");
    QTEST(match.awayTeam, "away");
    QTEST(match.scorelineDisplay(), "score");
    QTEST(match.liveClock.value_or(QString()), "clock");
    QTEST(match.homeScorers + match.awayScorers, "scorers");
}

// The real tournament never needed head-to-head or the last resort at an instant worth checking, so
// these tables are made up.
void FeedTruthTest::groupRanking_data()
{
    QTest::addColumn<QStringList>("results"); // "home away home-goals away-goals"
    QTest::addColumn<bool>("complete");
    QTest::addColumn<QString>("order");

    QTest::newRow("nothing played keeps the draw") << QStringList() << false << "1 2 3 4";
    QTest::newRow("a finished group falls back on the real order") << QStringList() << true << "4 3 2 1";
    QTest::newRow("points, then goal difference")
        << QStringList{"4 1 3 0", "2 3 2 2", "1 2 0 0"} << false << "4 2 3 1";
    QTest::newRow("level teams ordered by their own game")
        << QStringList{"3 2 1 0", "2 4 1 0", "1 3 1 0"} << false << "1 3 2 4";
    QTest::newRow("level teams that drew keep the draw")
        << QStringList{"3 2 1 1", "1 4 2 0"} << false << "1 2 3 4";
}

void FeedTruthTest::groupRanking()
{
    QFETCH(QStringList, results);
    QFETCH(bool, complete);

    GroupFact group;
    group.drawOrder = {"1", "2", "3", "4"};
    group.finalOrder = {"4", "3", "2", "1"};
    QList<GroupResult> played;
    for (const QString &result : results) {
        const QStringList parts = result.split(u' ');
        played.append({parts[0], parts[1], Score{parts[2].toInt(), parts[3].toInt()}});
    }

    QStringList ranked;
    int matchesPlayed = 0;
    for (const GroupRow &row : GroupTable::ranked(group, played, complete)) {
        ranked.append(row.teamID);
        matchesPlayed += row.played;
    }
    QTEST(ranked.join(u' '), "order");
    QCOMPARE(matchesPlayed, 2 * results.size());
}

QTEST_GUILESS_MAIN(FeedTruthTest)
#include "FeedTruthTest.moc"
