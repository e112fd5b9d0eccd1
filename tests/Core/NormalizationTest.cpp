#include "State/Normalization.h"
#include "Models/APIResponses.h"
#include "Networking/APIService.h"
#include "State/PlainFeedText.h"

#include <QFile>
#include <QTest>

using namespace Normalization;

// Feed text to the program's own records: statuses, scores, clocks, scorers, names, codes, venue zones
// and tables; then the whole real tournament from the service's seed export.
class NormalizationTest : public QObject {
    Q_OBJECT

private slots:
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
    void seedTournament();
    void plainText_data();
    void plainText();
};

namespace {

QByteArray readFixture(const QString &name)
{
    QFile file(QStringLiteral(PITCHLARK_TEST_DATA "/service-seed/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("missing fixture %s", qPrintable(name));
    return file.readAll();
}

APIGame gameWith(const QString &finished, const QString &elapsed)
{
    APIGame game;
    game.finished = finished;
    game.timeElapsed = elapsed;
    return game;
}

} // namespace

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
    QTest::newRow("NS") << "FALSE" << "NS" << MatchStatus::scheduled;
    QTest::newRow("zero") << "FALSE" << "0" << MatchStatus::scheduled;
    QTest::newRow("minute") << "FALSE" << "67" << MatchStatus::inPlay;
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
    QTest::newRow("minute") << "67" << "2" << QVariant(2) << QVariant("67'") << QVariant(67);
    QTest::newRow("stoppage with marks") << "90+4'" << "1" << QVariant(1) << QVariant("90'+4'") << QVariant(904);
    QTest::newRow("spaced stoppage") << " 45 + 3 " << "1" << QVariant(1) << QVariant("45'+3'") << QVariant(453);
    QTest::newRow("clock with seconds") << "67:12" << "1" << QVariant(1) << QVariant("67'") << QVariant(6712);
    QTest::newRow("live word") << "live" << "3" << QVariant(3) << none << none;
    QTest::newRow("Arabic-Indic minute") << "٦٧" << "1" << QVariant(1) << QVariant("٦٧'") << none;
    QTest::newRow("finished") << "finished" << "4" << QVariant(4) << none << none;
    QTest::newRow("empty score") << "50" << "" << none << QVariant("50'") << QVariant(50);
    QTest::newRow("unparseable score") << "50" << " 1" << none << QVariant("50'") << QVariant(50);
    // clang-format on
}

void NormalizationTest::liveFields()
{
    QFETCH(QString, elapsed);
    QFETCH(QString, score);
    QFETCH(QVariant, expectedScore);
    QFETCH(QVariant, expectedClock);
    QFETCH(QVariant, expectedMinute);

    APIGame game = gameWith(QStringLiteral("FALSE"), elapsed);
    game.homeScore = score;
    const Match match = normalizeMatch(game, {}, {});
    QCOMPARE(match.homeScoreValue(), expectedScore);
    QCOMPARE(match.liveClockValue(), expectedClock);
    QCOMPARE(match.minuteValue(), expectedMinute);
}

void NormalizationTest::scorers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");

    // clang-format off
    QTest::newRow("NULL padded") << "  NULL\n" << QStringList();
    QTest::newRow("bare brackets") << "[]" << QStringList();
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
    QTest::newRow("short name") << none << "" << "" << QVariant("Ab") << "Ab" << "AB";
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
    QTest::newRow("Guadalajara") << "17" << "Guadalajara" << "Mexico" << QByteArray("America/Mexico_City");
    QTest::newRow("Monterrey by city") << "17" << "Monterrey" << "Mexico" << QByteArray("America/Monterrey");
    QTest::newRow("Toronto") << "17" << "North Toronto" << "Canada" << QByteArray("America/Toronto");
    QTest::newRow("other Canadian city") << "17" << "Edmonton" << "Canada" << QByteArray("America/New_York");
    QTest::newRow("country is case-sensitive") << "17" << "Vancouver" << "canada" << QByteArray("America/New_York");
    QTest::newRow("Inglewood") << "17" << "Inglewood" << "USA" << QByteArray("America/Los_Angeles");
    QTest::newRow("Arlington") << "17" << "Arlington (Dallas)" << "USA" << QByteArray("America/Chicago");
    QTest::newRow("Foxborough") << "17" << "Foxborough" << "USA" << QByteArray("America/New_York");
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
    const TeamTable teams{{QStringLiteral("1"), APITeam{QStringLiteral("1"),
                                                        QStringLiteral("Mexico"),
                                                        QStringLiteral("https://flagcdn.com/w80/mx.png"),
                                                        QStringLiteral("MEX"),
                                                        QStringLiteral("mx"),
                                                        {}}},
                          {QStringLiteral("9"), APITeam{QStringLiteral("9"),
                                                        QStringLiteral("England"),
                                                        QStringLiteral("not a url"),
                                                        QStringLiteral("ENG"),
                                                        QStringLiteral("ENG"),
                                                        {}}}};

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
    const StadiumTable stadiums{{game.stadiumID, APIStadium{game.stadiumID,
                                                            QStringLiteral("NRG Stadium"),
                                                            {},
                                                            QStringLiteral("Houston"),
                                                            QStringLiteral("USA"),
                                                            {},
                                                            {}}}};
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

void NormalizationTest::seedTournament()
{
    const QList<APIGame> games =
        APIGamesResponse::decode(readFixture(QStringLiteral("football.matches.json")))->games;
    const QList<APIGroup> groups =
        APIGroupsResponse::decode(readFixture(QStringLiteral("football.matchtables.json")))->groups;
    const auto teamList = APITeamsResponse::decode(readFixture(QStringLiteral("football.teams.json")));
    TeamTable teams;
    for (const APITeam &team : teamList->teams)
        teams.insert(team.id, team);
    const auto stadiumList =
        APIStadiumsResponse::decode(readFixture(QStringLiteral("football.stadiums.json")));
    StadiumTable stadiums;
    for (const APIStadium &stadium : stadiumList->stadiums)
        stadiums.insert(stadium.id, stadium);

    QCOMPARE(games.size(), 104);
    QCOMPARE(teams.size(), 48);
    QCOMPARE(stadiums.size(), 16);
    QCOMPARE(groups.size(), 12);

    const WCFormatters utc(QTimeZone::utc());
    QHash<QString, Match> matches;
    for (const APIGame &game : games)
        matches.insert(game.id, normalizeMatch(game, teams, stadiums, utc));

    const Match &opening = matches.value(QStringLiteral("1"));
    QCOMPARE(opening.stadium, QStringLiteral("Estadio Azteca"));
    QCOMPARE(opening.kickoffDate, QDateTime(QDate(2026, 6, 11), QTime(19, 0), QTimeZone::utc()));
    QCOMPARE(opening.roundLabel(), QStringLiteral("Group A"));
    QCOMPARE(opening.trayMenuBarTitle(), QStringLiteral("🇲🇽 -–- 🇿🇦"));
    QCOMPARE(opening.status, MatchStatus::scheduled);

    const Match &final = matches.value(QStringLiteral("104"));
    QCOMPARE(final.round, QStringLiteral("FINAL"));
    // 15:00 in New Jersey.
    QCOMPARE(final.kickoffDate, QDateTime(QDate(2026, 7, 19), QTime(19, 0), QTimeZone::utc()));
    QCOMPARE(final.homeTeam, QStringLiteral("Winner Match 101"));
    QCOMPARE(final.awayTeam, QStringLiteral("Winner Match 102"));
    QCOMPARE(final.homeCode, QStringLiteral("WM1"));
    QVERIFY(final.homeFlagEmoji.isEmpty());

    for (const Match &match : std::as_const(matches)) {
        QVERIFY2(match.kickoffDate.isValid(), qPrintable(match.id));
        QVERIFY2(match.stadium != QLatin1StringView("Venue TBD"), qPrintable(match.id));
    }

    // England's iso2 is "ENG": no flag emoji, so the tray falls back to the code.
    const auto england = std::find_if(teams.cbegin(), teams.cend(), [](const APITeam &team) {
        return team.fifaCode == QLatin1StringView("ENG");
    });
    QVERIFY(england != teams.cend());
    QVERIFY(flagEmoji(england->iso2).isEmpty());

    for (const APIGroup &group : groups) {
        const GroupStanding standing = normalizeStanding(group, teams);
        QCOMPARE(standing.standings.size(), 4);
        for (const StandingRow &row : standing.standings)
            QCOMPARE(teams.value(row.teamID).groups, standing.group);
    }
}

void NormalizationTest::plainText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");

    const QString rlo(QChar(0x202e));
    const QString flag = QStringLiteral("🇵🇦");
    // clang-format off
    QTest::newRow("plain stays") << "Côte d'Ivoire <3 & co" << "Côte d'Ivoire <3 & co";
    QTest::newRow("NUL dropped") << QStringLiteral("Pan") + QChar(0) + QStringLiteral("ama") << "Panama";
    QTest::newRow("line breaks become spaces") << "Pan\r\nama\tFC" << "Pan  ama FC";
    QTest::newRow("bidi override dropped") << rlo + "Panama" + QChar(0x2069) << "Panama";
    QTest::newRow("C1 control dropped") << QStringLiteral("Pa") + QChar(0x9b) + QStringLiteral("nama") << "Panama";
    QTest::newRow("at the cap") << QString(200, u'x') << QString(200, u'x');
    QTest::newRow("over the cap") << QString(10'000, u'x') << QString(199, u'x') + u'…';
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
