#include "State/Normalization.h"
#include "Models/APIResponses.h"
#include "Networking/APIService.h"
#include "State/PlainFeedText.h"

#include <QRegularExpression>
#include <QTest>

using namespace Normalization;

// Feed bodies to the program's own records. Decoding must never lose a record over a badly typed scalar,
// and must fail only on a body of the wrong shape: the live service changes types between strings,
// numbers and booleans without notice. Then statuses, scores, clocks, scorers, names, codes, venue zones
// and tables. The real tournament goes the same way in FeedTruthTest.
class NormalizationTest : public QObject {
    Q_OBJECT

private slots:
    void lossyText_data();
    void lossyText();
    void envelopeShapes_data();
    void envelopeShapes();
    void defaultsAndMixedScalarTypes();
    void missingIdentityIsFreshEachTime();
    void stadiumCapacity_data();
    void stadiumCapacity();
    void groupKeyAndTable_data();
    void groupKeyAndTable();
    void status_data();
    void status();
    void liveFields_data();
    void liveFields();
    void scorers_data();
    void scorers();
    void teamNameAndCode_data();
    void teamNameAndCode();
    void venueZone_data();
    void venueZone();
    void knownTeamFillsMatch();
    void kickoffShownInUserZone();
    void standingOrder();
    void plainText_data();
    void plainText();
};

namespace {

APIGame gameWith(const QString &finished, const QString &elapsed)
{
    APIGame game;
    game.finished = finished;
    game.timeElapsed = elapsed;
    return game;
}

} // namespace

void NormalizationTest::lossyText_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QVariant>("expected"); // null QVariant: no text

    // clang-format off
    QTest::newRow("empty string is present") << QByteArray(R"("")") << QVariant(QString(""));
    QTest::newRow("negative zero") << QByteArray("-0.0") << QVariant(QStringLiteral("0"));
    QTest::newRow("shortest round trip") << QByteArray("0.1") << QVariant(QStringLiteral("0.1"));
    QTest::newRow("beyond 64 bits") << QByteArray("1e20") << QVariant(QStringLiteral("1e+20"));
    QTest::newRow("exact 64-bit integer")
        << QByteArray("9007199254740993") << QVariant(QStringLiteral("9007199254740993"));
    QTest::newRow("null") << QByteArray("null") << QVariant();
    // clang-format on
}

void NormalizationTest::lossyText()
{
    QFETCH(QByteArray, json);
    QFETCH(QVariant, expected);

    const QJsonObject object = QJsonDocument::fromJson(R"({"key":)" + json + "}").object();
    const auto text = FeedDecoding::lossyString(object, QLatin1StringView("key"));
    QCOMPARE(text.has_value(), expected.isValid());
    if (text)
        QCOMPARE(*text, expected.toString());
    QVERIFY(!FeedDecoding::lossyString(object, QLatin1StringView("absent")));
}

void NormalizationTest::envelopeShapes_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("expectedCount"); // -1: the decode fails

    // A null envelope, a cut-off body and an empty one are met in APIServiceTest and FeedFaultsTest.
    // clang-format off
    QTest::newRow("empty envelope") << QByteArray(R"({"games":[]})") << 0;
    QTest::newRow("extra keys") << QByteArray(R"({"ok":true,"games":[{"id":"1","_id":"x"}]})") << 1;
    QTest::newRow("bare array") << QByteArray(R"([{"id":"1"}])") << 1;
    QTest::newRow("envelope key missing") << QByteArray(R"({"teams":[]})") << -1;
    QTest::newRow("non-object element in envelope") << QByteArray(R"({"games":[{"id":"1"},2]})") << -1;
    // clang-format on
}

void NormalizationTest::envelopeShapes()
{
    QFETCH(QByteArray, body);
    QFETCH(int, expectedCount);

    const auto decoded = APIGamesResponse::decode(body);
    QCOMPARE(decoded.ok(), expectedCount >= 0);
    if (decoded)
        QCOMPARE(decoded->games.size(), expectedCount);
    else
        QVERIFY(!decoded.error().message.isEmpty());
}

void NormalizationTest::defaultsAndMixedScalarTypes()
{
    const auto decoded =
        APIGamesResponse::decode(R"([{}, {"id":7,"home_score":2,"finished":true,"away_score":null,)"
                                 R"("home_team_label":"","group":["A"]}])");
    QVERIFY(decoded);
    // An empty record is kept, and its defaults read as an unplayed game between unknown teams.
    const APIGame &bare = decoded->games.constFirst();
    QCOMPARE(bare.homeTeamID, QStringLiteral("0"));
    QCOMPARE(bare.homeScorers, QStringLiteral("null"));
    QCOMPARE(bare.timeElapsed, QStringLiteral("notstarted"));
    QVERIFY(!bare.homeTeamNameEn && !bare.homeTeamLabel);

    const APIGame &game = decoded->games.constLast();
    QCOMPARE(game.id, QStringLiteral("7"));
    QCOMPARE(game.homeScore, QStringLiteral("2"));
    QCOMPARE(game.finished, QStringLiteral("true"));
    QCOMPARE(game.awayScore, QStringLiteral("0"));
    QCOMPARE(game.homeTeamLabel, std::optional<QString>(QString("")));
    QCOMPARE(game.group, QString());
}

void NormalizationTest::missingIdentityIsFreshEachTime()
{
    const QByteArray body = R"({"teams":[{"name_en":"Mexico"}]})";
    const QString first = APITeamsResponse::decode(body)->teams.constFirst().id;
    const QString second = APITeamsResponse::decode(body)->teams.constFirst().id;
    QVERIFY(first != second);
    static const QRegularExpression canonicalUpperCaseUuid(
        QStringLiteral("^[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}$"));
    QVERIFY2(canonicalUpperCaseUuid.match(first).hasMatch(), qPrintable(first));
}

void NormalizationTest::stadiumCapacity_data()
{
    QTest::addColumn<QByteArray>("capacity");
    QTest::addColumn<QVariant>("expected"); // null QVariant: no capacity

    // clang-format off
    QTest::newRow("number") << QByteArray("48000") << QVariant(qint64(48000));
    QTest::newRow("signed text") << QByteArray(R"("+12")") << QVariant(qint64(12));
    QTest::newRow("grouping comma") << QByteArray(R"("65,000")") << QVariant();
    QTest::newRow("fraction") << QByteArray("65000.5") << QVariant();
    QTest::newRow("largest") << QByteArray(R"("9223372036854775807")")
                             << QVariant(std::numeric_limits<qint64>::max());
    QTest::newRow("overflow") << QByteArray(R"("9223372036854775808")") << QVariant();
    QTest::newRow("Arabic-Indic digits") << QByteArray(R"("٤٥")") << QVariant();
    // clang-format on
}

void NormalizationTest::stadiumCapacity()
{
    QFETCH(QByteArray, capacity);

    const auto decoded =
        APIStadiumsResponse::decode(R"({"stadiums":[{"id":"1","capacity":)" + capacity + "}]}");
    QVERIFY(decoded);
    const APIStadium &stadium = decoded->stadiums.constFirst();
    QTEST(stadium.capacityValue(), "expected");
    QCOMPARE(stadium.nameEn, QStringLiteral("Venue TBD"));
}

void NormalizationTest::groupKeyAndTable_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QString>("expectedLetter");
    QTest::addColumn<int>("expectedRows");

    const QByteArray row = R"({"team_id":"1","pts":3})";
    // clang-format off
    QTest::newRow("live service key") << QByteArray(R"({"name":"A","teams":[)" + row + "]}") << "A" << 1;
    QTest::newRow("seed key wins") << QByteArray(R"({"group":"B","name":"A"})") << "B" << 0;
    QTest::newRow("one bad row empties the table")
        << QByteArray(R"({"group":"C","teams":[)" + row + ",5]}") << "C" << 0;
    // clang-format on
}

void NormalizationTest::groupKeyAndTable()
{
    QFETCH(QByteArray, group);
    QFETCH(int, expectedRows);

    const auto decoded = APIGroupsResponse::decode(R"({"groups":[)" + group + "]}");
    QVERIFY(decoded);
    const APIGroup &decodedGroup = decoded->groups.constFirst();
    QTEST(decodedGroup.group, "expectedLetter");
    QCOMPARE(decodedGroup.teams.size(), expectedRows);
    if (expectedRows > 0) {
        const APIStandingTeam &first = decodedGroup.teams.constFirst();
        QCOMPARE(first.points, QStringLiteral("3"));
        QCOMPARE(first.played, QStringLiteral("0"));
        QCOMPARE(first.goalDifference, QStringLiteral("0"));
    }
}

void NormalizationTest::status_data()
{
    QTest::addColumn<QString>("finished");
    QTest::addColumn<QString>("elapsed");
    QTest::addColumn<MatchStatus>("expected");

    // clang-format off
    QTest::newRow("flag lower case") << "true" << "" << MatchStatus::finished;
    QTest::newRow("flag wins over clock") << "TRUE" << "90+5" << MatchStatus::finished;
    QTest::newRow("flag 1 is not finished") << "1" << "67" << MatchStatus::inPlay;
    QTest::newRow("FT") << "FALSE" << "FT" << MatchStatus::finished;
    QTest::newRow("ht padded") << "FALSE" << " \tht " << MatchStatus::halfTime;
    QTest::newRow("2nd half") << "FALSE" << "2nd half" << MatchStatus::halfTime;
    QTest::newRow("line break is not trimmed") << "FALSE" << "ht\n" << MatchStatus::inPlay;
    QTest::newRow("h2") << "FALSE" << "h2" << MatchStatus::inPlay;
    // clang-format on
}

void NormalizationTest::status()
{
    QFETCH(QString, finished);
    QFETCH(QString, elapsed);
    QTEST(APIService::status(gameWith(finished, elapsed)), "expected");
}

void NormalizationTest::liveFields_data()
{
    QTest::addColumn<QString>("elapsed");
    QTest::addColumn<QString>("score");
    QTest::addColumn<QVariant>("expectedScore");
    QTest::addColumn<QVariant>("expectedClock");
    QTest::addColumn<QVariant>("expectedMinute");

    const QVariant none;
    // clang-format off
    QTest::newRow("scheduled hides scores") << "notstarted" << "2" << none << none << none;
    QTest::newRow("default zero counts once live") << "1" << "0" << QVariant(0) << QVariant("1'") << QVariant(1);
    QTest::newRow("stoppage with marks") << "90+4'" << "1" << QVariant(1) << QVariant("90'+4'") << QVariant(904);
    QTest::newRow("clock with seconds") << "67:12" << "1" << QVariant(1) << QVariant("67'") << QVariant(6712);
    QTest::newRow("live word") << "live" << "3" << QVariant(3) << none << none;
    QTest::newRow("Arabic-Indic minute") << "٦٧" << "1" << QVariant(1) << QVariant("٦٧'") << none;
    QTest::newRow("unparseable score") << "50" << " 1" << none << QVariant("50'") << QVariant(50);
    // clang-format on
}

void NormalizationTest::liveFields()
{
    QFETCH(QString, elapsed);
    QFETCH(QString, score);

    APIGame game = gameWith(QStringLiteral("FALSE"), elapsed);
    game.homeScore = score;
    const Match match = normalizeMatch(game, {}, {});
    QTEST(match.homeScoreValue(), "expectedScore");
    QTEST(match.liveClockValue(), "expectedClock");
    QTEST(match.minuteValue(), "expectedMinute");
}

void NormalizationTest::scorers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");

    // clang-format off
    QTest::newRow("NULL padded") << "  NULL\n" << QStringList();
    // As the real service writes them for game 4 of its seed.
    QTest::newRow("service braces")
        << R"x({"D. Bobadilla 7'(OG)","F. Balogun 31'","F. Balogun 45'+5'"})x"
        << QStringList{"D. Bobadilla 7'(OG)", "F. Balogun 31'", "F. Balogun 45'+5'"};
    QTest::newRow("JSON list") << R"(["A 10'", " B 20' "])" << QStringList{"A 10'", "B 20'"};
    QTest::newRow("plain list with nulls") << "{A 10',null,,B 20'}" << QStringList{"A 10'", "B 20'"};
    QTest::newRow("typographic quotes stay")
        << "{“J. Quiñones 9'”,”R. Jiménez 67'”}" << QStringList{"“J. Quiñones 9'”", "”R. Jiménez 67'”"};
    QTest::newRow("escaped quotes") << R"([\"A 1'\"])" << QStringList{"A 1'\\"};
    // clang-format on
}

void NormalizationTest::scorers()
{
    QFETCH(QString, text);
    QTEST(scorerList(text), "expected");
}

void NormalizationTest::teamNameAndCode_data()
{
    QTest::addColumn<QVariant>("explicitName");
    QTest::addColumn<QString>("teamName"); // empty: team not in the table
    QTest::addColumn<QString>("fifaCode");
    QTest::addColumn<QVariant>("label");
    QTest::addColumn<QString>("expectedName");
    QTest::addColumn<QString>("expectedCode");

    const QVariant none;
    // clang-format off
    QTest::newRow("code trimmed and raised") << none << "Mexico" << " mex\n" << none << "Mexico" << "MEX";
    QTest::newRow("explicit name wins") << QVariant("México") << "Mexico" << "" << none << "México" << "MÉX";
    QTest::newRow("empty explicit name") << QVariant("") << "Mexico" << "MEX" << none << "Mexico" << "MEX";
    QTest::newRow("two-word label") << none << "" << "" << QVariant("Runner-up  Group\tA") << "Runner-up  Group\tA"
                                    << "RGA";
    QTest::newRow("empty label") << none << "" << "" << QVariant("") << "TBD" << "TBD";
    QTest::newRow("two-word team, no code") << none << "Costa Rica" << " " << none << "Costa Rica" << "CR";
    // clang-format on
}

void NormalizationTest::teamNameAndCode()
{
    QFETCH(QVariant, explicitName);
    QFETCH(QString, teamName);
    QFETCH(QString, fifaCode);
    QFETCH(QVariant, label);

    APIGame game;
    game.homeTeamID = QStringLiteral("1");
    if (explicitName.isValid())
        game.homeTeamNameEn = explicitName.toString();
    if (label.isValid())
        game.homeTeamLabel = label.toString();
    TeamTable teams;
    if (!teamName.isEmpty())
        teams.insert(game.homeTeamID, APITeam{game.homeTeamID, teamName, {}, fifaCode, {}, {}});

    const Match match = normalizeMatch(game, teams, {});
    QTEST(match.homeTeam, "expectedName");
    QTEST(match.homeCode, "expectedCode");
}

void NormalizationTest::venueZone_data()
{
    QTest::addColumn<QString>("stadiumID");
    QTest::addColumn<QString>("city");
    QTest::addColumn<QString>("country");
    QTest::addColumn<QByteArray>("expectedZone");

    // clang-format off
    QTest::newRow("id beats city") << "12" << "Seattle" << "USA" << QByteArray("America/Toronto");
    QTest::newRow("Toronto") << "17" << "North Toronto" << "Canada" << QByteArray("America/Toronto");
    QTest::newRow("other Canadian city") << "17" << "Edmonton" << "Canada" << QByteArray("America/New_York");
    QTest::newRow("country is case-sensitive") << "17" << "Vancouver" << "canada" << QByteArray("America/New_York");
    // clang-format on
}

void NormalizationTest::venueZone()
{
    QFETCH(QString, stadiumID);
    QFETCH(QString, city);
    QFETCH(QString, country);
    APIStadium venue;
    venue.id = stadiumID;
    venue.cityEn = city;
    venue.countryEn = country;
    const auto zone = timeZone(venue);
    QVERIFY(zone);
    QTEST(zone->id(), "expectedZone");
}

void NormalizationTest::knownTeamFillsMatch()
{
    APIGame game;
    game.id = QStringLiteral("12");
    game.group = QStringLiteral("Group A");
    game.type = QStringLiteral("r32");
    game.homeTeamID = QStringLiteral("1");
    game.awayTeamID = QStringLiteral("9");
    game.stadiumID = QStringLiteral("99");
    game.localDate = QStringLiteral("someday");
    const TeamTable teams{
        {QStringLiteral("1"), APITeam{"1", "Mexico", "https://flagcdn.com/w80/mx.png", "MEX", "mx", {}}},
        {QStringLiteral("9"), APITeam{"9", "England", "not a url", "ENG", "ENG", {}}}};

    const Match match = normalizeMatch(game, teams, {}, WCFormatters(QTimeZone::utc()));
    QCOMPARE(match.matchNumber, 12);
    QCOMPARE(match.round, QStringLiteral("R32"));
    QCOMPARE(match.groupName, QString());
    QCOMPARE(match.homeFlagEmoji, QStringLiteral("🇲🇽"));
    QCOMPARE(match.homeFlagURL, QUrl(QStringLiteral("https://flagcdn.com/w80/mx.png")));
    QCOMPARE(match.awayFlagEmoji, QString());
    QCOMPARE(match.awayFlagURL, QUrl());
    QCOMPARE(match.stadium, QStringLiteral("Venue TBD"));
    QCOMPARE(match.city, QString());
    QVERIFY(!match.kickoffDate.isValid());
    QCOMPARE(match.kickoffLabel, QStringLiteral("someday"));

    game.id = QStringLiteral("M12");
    QCOMPARE(normalizeMatch(game, teams, {}).matchNumber, 0);
}

void NormalizationTest::kickoffShownInUserZone()
{
    // A 13:00 kick-off on Central time reads 20:00 to a user on Central European Summer Time.
    APIGame game;
    game.stadiumID = QStringLiteral("4");
    game.localDate = QStringLiteral("06/14/2026 13:00");
    const StadiumTable stadiums{
        {game.stadiumID, APIStadium{game.stadiumID, "NRG Stadium", {}, "Houston", "USA", {}, {}}}};
    const Match match = normalizeMatch(game, {}, stadiums, WCFormatters(QTimeZone("Europe/Berlin")));
    QCOMPARE(match.kickoffLabel, QStringLiteral("20:00"));
    QCOMPARE(match.venueLine(), QStringLiteral("NRG Stadium · Houston"));

    // Without a venue the text is read in the user's own zone.
    game.stadiumID = QStringLiteral("0");
    QCOMPARE(normalizeMatch(game, {}, {}, WCFormatters(QTimeZone("Europe/Berlin"))).kickoffLabel,
             QStringLiteral("13:00"));
}

void NormalizationTest::standingOrder()
{
    const auto row = [](const char *team, const char *points, const char *gd, const char *gf,
                        const char *won) {
        APIStandingTeam standing;
        standing.teamID = QString::fromLatin1(team);
        standing.points = QString::fromLatin1(points);
        standing.goalDifference = QString::fromLatin1(gd);
        standing.goalsFor = QString::fromLatin1(gf);
        standing.won = QString::fromLatin1(won);
        return standing;
    };
    APIGroup group;
    group.group = QStringLiteral("A");
    group.teams = {row("z", "4", "1", "3", "1"),      row("b", "4", "1", "3", "1"),
                   row("c", "7", "-2", "1", "2"),     row("d", "4", "1", "4", "1"),
                   row("e", "4", "2", "0", "1"),      row("f", "x", "", "1", "0"),
                   row("unknown", "4", "1", "3", "1")};
    TeamTable teams;
    for (const char *id : {"z", "b", "c", "d", "e", "f"}) {
        const QString teamID = QString::fromLatin1(id);
        // Names sort differently from ids, so the name tie-break is visible.
        teams.insert(teamID, APITeam{teamID, QStringLiteral("Team ") + teamID.toUpper(), {}, {}, {}, {}});
    }
    teams[QStringLiteral("z")].nameEn = QStringLiteral("Albania");

    const GroupStanding standing = normalizeStanding(group, teams);
    QStringList order;
    for (const StandingRow &standingRow : standing.standings)
        order.append(standingRow.teamID);
    // Points, goal difference, goals for, wins, then name in code-point order ("TBD" before "Team B").
    QCOMPARE(order, QStringList({"c", "e", "d", "z", "unknown", "b", "f"}));
    QCOMPARE(standing.standings.constFirst().position, 1);
    QCOMPARE(standing.standings.constLast().position, 7);
    QCOMPARE(standing.standings.constLast().points, 0);
    QCOMPARE(standing.standings[4].team, QStringLiteral("TBD"));
    QCOMPARE(standing.group, QStringLiteral("A"));
}

void NormalizationTest::plainText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");

    // Markup, NUL, line breaks, bidi overrides and the cut itself are met in StatusCommandTest.
    const QString flag = QStringLiteral("🇵🇦");
    // clang-format off
    QTest::newRow("C1 control dropped") << QStringLiteral("Pa") + QChar(0x9b) + QStringLiteral("nama") << "Panama";
    QTest::newRow("at the cap") << QString(200, u'x') << QString(200, u'x');
    QTest::newRow("no half emoji at the cut") << QString(198, u'x') + flag << QString(198, u'x') + u'…';
    // clang-format on
}

void NormalizationTest::plainText()
{
    QFETCH(QString, text);
    QTEST(PlainFeedText::plain(text), "shown");
}

QTEST_GUILESS_MAIN(NormalizationTest)
#include "NormalizationTest.moc"
