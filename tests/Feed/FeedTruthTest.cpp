#include "FeedTestSupport.h"

#include "Models/APIResponses.h"
#include "Networking/APIService.h"
#include "State/Normalization.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

// The replayed tournament against the real one, read over HTTP by the app's own decoders and
// normalisation: what a fan saw at chosen moments, and the final tables and scores.
class FeedTruthTest : public QObject {
    Q_OBJECT

private slots:
    void finalTablesMatchTheRealOnes_data();
    void finalTablesMatchTheRealOnes();
    void everyFinalScoreMatchesOpenfootball();
    void momentsAsFansSawThem_data();
    void momentsAsFansSawThem();
    void recordsKeepTheServiceHabits();
    void liveElapsedStyleSendsTheCoarseWord();
    void kickoffInstantsSurviveTheVenueLocalDates();
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

void FeedTruthTest::finalTablesMatchTheRealOnes_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("table"); // FIFA code, points, goal difference; in final order

    // The order the live service sends its groups in.
    // clang-format off
    QTest::newRow("H") << "H" << "ESP 7 5, CPV 3 0, URU 2 -1, KSA 2 -4";
    QTest::newRow("I") << "I" << "FRA 9 8, NOR 6 1, SEN 3 2, IRQ 0 -11";
    QTest::newRow("D") << "D" << "USA 6 4, AUS 4 0, PAR 4 -2, TUR 3 -2";
    QTest::newRow("E") << "E" << "GER 6 6, CIV 6 2, ECU 4 0, CUW 1 -8";
    QTest::newRow("F") << "F" << "NED 7 6, JPN 5 4, SWE 4 0, TUN 0 -10";
    QTest::newRow("G") << "G" << "BEL 5 4, EGY 5 2, IRN 3 0, NZL 1 -6";
    QTest::newRow("A") << "A" << "MEX 9 6, RSA 4 -1, KOR 3 -1, CZE 1 -4";
    QTest::newRow("B") << "B" << "SUI 7 4, CAN 4 5, BIH 4 -1, QAT 1 -8";
    QTest::newRow("L") << "L" << "ENG 7 4, CRO 6 0, GHA 4 0, PAN 0 -4";
    QTest::newRow("K") << "K" << "COL 7 3, POR 5 5, COD 4 1, UZB 0 -9";
    QTest::newRow("C") << "C" << "BRA 7 6, MAR 7 3, SCO 3 -3, HAI 0 -6";
    QTest::newRow("J") << "J" << "ARG 9 7, AUT 4 0, ALG 4 -2, JOR 0 -5";
    // clang-format on
}

void FeedTruthTest::finalTablesMatchTheRealOnes()
{
    QFETCH(QString, group);
    QFETCH(QString, table);

    FrozenFeed feed("2026-07-20T00:00:00Z");
    QVERIFY(feed.isListening());
    const Tables tables = fetchTables(feed);
    const auto groups = APIGroupsResponse::decode(feed.get(QStringLiteral("/get/groups")).body);
    QVERIFY(groups);
    QCOMPARE(groups->groups.size(), 12);
    const qsizetype servicePosition = QStringLiteral("HIDEFGABLKCJ").indexOf(group);
    const APIGroup &sent = groups->groups.at(servicePosition);
    QCOMPARE(sent.group, group);

    QStringList sentRows;
    for (const APIStandingTeam &row : sent.teams)
        sentRows.append(QStringLiteral("%1 %2 %3")
                            .arg(tables.teams[row.teamID].fifaCode, row.points, row.goalDifference));
    QCOMPARE(sentRows.join(QStringLiteral(", ")), table);

    // The app ranks the rows itself; it must come to the same order.
    QStringList shownRows;
    for (const StandingRow &row : Normalization::normalizeStanding(sent, tables.teams).standings)
        shownRows.append(QStringLiteral("%1 %2 %3").arg(row.code).arg(row.points).arg(row.goalDifference));
    QCOMPARE(shownRows.join(QStringLiteral(", ")), table);
}

void FeedTruthTest::everyFinalScoreMatchesOpenfootball()
{
    FrozenFeed feed("2026-07-20T00:00:00Z");
    QVERIFY(feed.isListening());
    const Tables tables = fetchTables(feed);
    const QList<Match> matches = fetchMatches(feed, tables);
    QCOMPARE(matches.size(), 104);

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

    const auto none = QStringList();
    // clang-format off
    QTest::newRow("before the opening kick-off")
        << QByteArray("2026-06-11T18:59:00Z") << "1" << MatchStatus::scheduled << "Mexico" << "South Africa" << "– – –" << "" << none;
    QTest::newRow("opening game, first half")
        << QByteArray("2026-06-11T19:30:00Z") << "1" << MatchStatus::inPlay << "Mexico" << "South Africa" << "1 – 0" << "31'" << QStringList{"J. Quiñones 9'"};
    QTest::newRow("opening game, half-time")
        << QByteArray("2026-06-11T19:55:00Z") << "1" << MatchStatus::halfTime << "Mexico" << "South Africa" << "1 – 0" << "" << QStringList{"J. Quiñones 9'"};
    QTest::newRow("opening game, full time")
        << QByteArray("2026-06-11T21:00:00Z") << "1" << MatchStatus::finished << "Mexico" << "South Africa" << "2 – 0" << "" << QStringList{"J. Quiñones 9'", "R. Jiménez 67'"};
    QTest::newRow("final group games, Croatia-Ghana")
        << QByteArray("2026-06-27T21:40:00Z") << "68" << MatchStatus::inPlay << "Croatia" << "Ghana" << "1 – 0" << "41'" << QStringList{"P. Sucic 31'"};
    QTest::newRow("third-placed side waits for the whole group stage")
        << QByteArray("2026-06-28T01:00:00Z") << "74" << MatchStatus::scheduled << "Germany" << "3rd Group A/B/C/D/F" << "– – –" << "" << none;
    QTest::newRow("third-placed side after the group stage")
        << QByteArray("2026-06-28T06:00:00Z") << "74" << MatchStatus::scheduled << "Germany" << "Paraguay" << "– – –" << "" << none;
    QTest::newRow("winner's slot while its feeder is played")
        << QByteArray("2026-06-29T22:00:00Z") << "89" << MatchStatus::scheduled << "Winner Match 74" << "Winner Match 77" << "– – –" << "" << none;
    QTest::newRow("the feeder in its second half")
        << QByteArray("2026-06-29T22:00:00Z") << "74" << MatchStatus::inPlay << "Germany" << "Paraguay" << "1 – 1" << "73'" << QStringList{"K. Havertz 54'", "J. Enciso 42'"};
    QTest::newRow("the feeder's penalty shoot-out")
        << QByteArray("2026-06-29T23:12:00Z") << "74" << MatchStatus::inPlay << "Germany" << "Paraguay" << "1 – 1" << "" << QStringList{"K. Havertz 54'", "J. Enciso 42'"};
    QTest::newRow("the shoot-out is over")
        << QByteArray("2026-06-30T00:00:00Z") << "74" << MatchStatus::finished << "Germany" << "Paraguay" << "1 – 1" << "" << QStringList{"K. Havertz 54'", "J. Enciso 42'"};
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
    QFETCH(MatchStatus, status);
    QFETCH(QString, home);
    QFETCH(QString, away);
    QFETCH(QString, score);
    QFETCH(QString, clock);
    QFETCH(QStringList, scorers);

    FrozenFeed feed(instant.constData());
    QVERIFY(feed.isListening());
    const Match match = matchWithID(fetchMatches(feed, fetchTables(feed)), gameID);
    QCOMPARE(match.id, gameID);
    QCOMPARE(match.status, status);
    QCOMPARE(match.homeTeam, home);
    QCOMPARE(match.awayTeam, away);
    QCOMPARE(match.scorelineDisplay(), score);
    QCOMPARE(match.liveClock.value_or(QString()), clock);
    QCOMPARE(match.homeScorers + match.awayScorers, scorers);
}

void FeedTruthTest::recordsKeepTheServiceHabits()
{
    FrozenFeed feed("2026-06-28T01:00:00Z");
    QVERIFY(feed.isListening());
    const HttpAnswer answer = feed.get(QStringLiteral("/get/games"));
    QCOMPARE(answer.status, 200);
    QVERIFY(answer.contentType.startsWith("application/json"));
    const QJsonArray games = QJsonDocument::fromJson(answer.body).object().value(u"games").toArray();
    QCOMPARE(games.size(), 104);
    for (const QJsonValue &game : games) {
        const QJsonObject record = game.toObject();
        for (auto field = record.begin(); field != record.end(); ++field)
            QVERIFY2(field.value().isString(), qPrintable(field.key()));
    }

    const QJsonObject notStarted = games.at(72).toObject(); // game 73, the first of the round of 32
    QCOMPARE(notStarted.value(u"id").toString(), QStringLiteral("73"));
    QCOMPARE(notStarted.value(u"home_score").toString(), QStringLiteral("0"));
    QCOMPARE(notStarted.value(u"home_scorers").toString(), QStringLiteral("null"));
    QCOMPARE(notStarted.value(u"finished").toString(), QStringLiteral("FALSE"));
    QCOMPARE(notStarted.value(u"time_elapsed").toString(), QStringLiteral("notstarted"));
    // Scorers as the real service wrote them for game 4, USA 4-1 Paraguay: in braces, not a JSON list.
    QCOMPARE(games.at(3).toObject().value(u"home_scorers").toString(),
             QString::fromUtf8("{\"D. Bobadilla 7'(OG)\",\"F. Balogun 31'\",\"F. Balogun 45'+5'\","
                               "\"G. Reyna 90'+8'\"}"));

    const QJsonObject group = QJsonDocument::fromJson(feed.get(QStringLiteral("/get/groups")).body)
                                  .object()
                                  .value(u"groups")
                                  .toArray()
                                  .first()
                                  .toObject();
    QCOMPARE(group.value(u"name").toString(), QStringLiteral("H"));
    QVERIFY(!group.contains(u"group"));
    const QJsonObject row = group.value(u"teams").toArray().first().toObject();
    for (const char *key : {"team_id", "mp", "w", "l", "d", "pts", "gf", "ga", "gd"})
        QVERIFY2(row.value(QLatin1StringView(key)).isString(), key);
}

void FeedTruthTest::liveElapsedStyleSendsTheCoarseWord()
{
    FrozenFeed feed("2026-06-11T19:55:00Z", ElapsedStyle::Live);
    QVERIFY(feed.isListening());
    const auto games = APIGamesResponse::decode(feed.get(QStringLiteral("/get/games")).body);
    QVERIFY(games);
    QCOMPARE(games->games.first().timeElapsed, QStringLiteral("live"));
    QCOMPARE(APIService::status(games->games.first()), MatchStatus::inPlay);
    QCOMPARE(games->games.at(1).timeElapsed, QStringLiteral("notstarted"));
}

void FeedTruthTest::kickoffInstantsSurviveTheVenueLocalDates()
{
    FrozenFeed feed("2026-06-01T00:00:00Z");
    QVERIFY(feed.isListening());
    const QList<Match> matches = fetchMatches(feed, fetchTables(feed));
    QCOMPARE(matches.size(), 104);
    const Tournament &tournament = Tournament::bundled();
    for (qsizetype index = 0; index < matches.size(); ++index)
        QCOMPARE(matches[index].kickoffDate, dateTimeFromInstant(tournament.games[index].kickoff));
    // Brazil-Haiti was moved to 20:30 in Philadelphia after the service's seed was made.
    QCOMPARE(matchWithID(matches, QStringLiteral("29")).kickoffDate,
             QDateTime(QDate(2026, 6, 20), QTime(0, 30), Qt::UTC));
}

QTEST_GUILESS_MAIN(FeedTruthTest)
#include "FeedTruthTest.moc"
