#include "ModelFixture.h"

#include <QFileInfo>
#include <QTest>

// The derived lists every screen and the tray label read: orderings, the day filter, contested
// kick-offs, the title in each mode, team search, and the calendar files of matches.
// Runs with TZ=UTC.
class ModelQueriesTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void orderings();
    void teamDetail();
    void trayTitle_data();
    void trayTitle();
    void contestedKickoffs();
    void teamSearch_data();
    void teamSearch();
    void addToCalendar();

private:
    std::unique_ptr<ModelFixture> m_fixture;
    std::unique_ptr<AppModel> m_model;
    QStringList m_openedFiles;
};

namespace {

const QDateTime noon(QDate(2026, 6, 11), QTime(12, 0), QTimeZone::utc());

// Stadium 1 is in Mexico City (UTC-6), so "06/11/2026 13:00" kicks off at 19:00 UTC.
const QByteArray teams = R"({"teams":[
  {"id":"1","name_en":"Mexico","fifa_code":"MEX","iso2":"MX","groups":"A"},
  {"id":"2","name_en":"South Africa","fifa_code":"RSA","iso2":"ZA","groups":"A"},
  {"id":"3","name_en":"South Korea","fifa_code":"KOR","iso2":"KR","groups":"A"},
  {"id":"4","name_en":"Czechia","fifa_code":"CZE","iso2":"CZ","groups":""},
  {"id":"5","name_en":"Canada","fifa_code":"CAN","iso2":"CA","groups":"B"},
  {"id":"6","name_en":"Scotland","fifa_code":"SCO","iso2":"SCO","groups":"C"}]})";
const QByteArray stadiums = R"({"stadiums":[
  {"id":"10","name_en":"Gillette Stadium","city_en":"Foxborough","country_en":"USA"},
  {"id":"2","name_en":"Estadio Akron","city_en":"Guadalajara","country_en":"Mexico"},
  {"id":"x","name_en":"Somewhere","city_en":"","country_en":""},
  {"id":"1","name_en":"Estadio Azteca","city_en":"Mexico City","country_en":"Mexico"}]})";
const QByteArray groups = R"({"groups":[
  {"name":"B","teams":[{"team_id":"5","pts":"3"}]},
  {"name":"A","teams":[{"team_id":"1","pts":"3"},{"team_id":"2","pts":"1"},{"team_id":"3"}]},
  {"name":"","teams":[{"team_id":"4"}]}]})";

// id, home, away, local date, status fields and scores; every game in the Azteca unless the date is empty.
QByteArray game(const char *id, const char *home, const char *away, const char *localDate,
                const char *elapsed = "notstarted", const char *score = "0", const char *finished = "FALSE")
{
    return QStringLiteral(R"({"id":"%1","home_team_id":"%2","away_team_id":"%3","local_date":"%4",
        "stadium_id":"1","time_elapsed":"%5","home_score":"%6","away_score":"0","finished":"%7"})")
        .arg(QLatin1StringView(id), QLatin1StringView(home), QLatin1StringView(away),
             QLatin1StringView(localDate), QLatin1StringView(elapsed), QLatin1StringView(score),
             QLatin1StringView(finished))
        .toUtf8();
}

QStringList ids(const QList<Match> &matches)
{
    QStringList result;
    for (const Match &match : matches)
        result.append(match.id);
    return result;
}

} // namespace

void ModelQueriesTest::init()
{
    m_fixture = std::make_unique<ModelFixture>();
    AppModel::Services services = m_fixture->services([] { return noon; });
    // The desktop's file handler cannot run here; the test keeps what it would be asked to open.
    m_openedFiles.clear();
    services.openFile = [this](const QString &path) { m_openedFiles.append(path); };
    m_model = std::make_unique<AppModel>(std::move(services));
    m_model->applyTeams(APITeamsResponse::decode(teams)->teams);
    m_model->applyStadiums(APIStadiumsResponse::decode(stadiums)->stadiums);
    m_model->applyGroups(APIGroupsResponse::decode(groups)->groups);
    const QByteArray games = "[" +
                             QByteArrayList{
                                 game("1", "1", "2", "06/11/2026 07:00"),            // favourite, scheduled
                                 game("2", "3", "4", "06/11/2026 09:00", "67", "1"), // live
                                 game("3", "5", "6", "06/11/2026 04:00"), // scheduled, shared instant
                                 game("4", "2", "5", "06/11/2026 11:00", "HT", "2"), // favourite, half time
                                 game("5", "3", "6", ""),                            // undated, number 5
                                 game("6", "4", "5", "06/11/2026 04:00"),            // shares 3's instant
                                 game("7", "6", "1", ""),                            // undated, favourite
                                 game("8", "4", "6", "06/12/2026 13:00", "finished", "3", "TRUE"),
                                 game("9", "5", "3", "06/12/2026 13:00"),             // shares 8's instant
                                 game("10", "3", "5", "06/12/2026 13:00", "ft", "1"), // finished, shared
                             }
                                 .join(',') +
                             "]";
    m_model->applyMatches(APIGamesResponse::decode(games)->games, false);
    m_model->toggleFavorite(QStringLiteral("2"));
}

void ModelQueriesTest::orderings()
{
    // All matches by kick-off, undated last by number; equal instants keep feed order.
    QCOMPARE(ids(m_model->allMatches()), QStringList({"3", "6", "1", "2", "4", "8", "9", "10", "5", "7"}));
    // The day's list: live first, then favourites, then kick-off. Undated matches count as today.
    QCOMPARE(ids(m_model->matches()), QStringList({"4", "2", "1", "3", "6", "5", "7"}));
    // Tray candidates: favourites first, then live.
    QCOMPARE(ids(m_model->liveMatchesCache()), QStringList({"4", "2"}));
    QCOMPARE(m_model->trayTitle(), std::optional<QString>("🇿🇦 2–0 🇨🇦"));

    m_model->toggleFavorite(QStringLiteral("3"));
    QCOMPARE(ids(m_model->liveMatchesCache()), QStringList({"2", "4"}));
    QCOMPARE(ids(m_model->matches()), QStringList({"2", "4", "1", "5", "3", "6", "7"}));

    // Stadiums by their number, not as text; an id that is no number comes first.
    QStringList stadiumOrder;
    for (const APIStadium &stadium : m_model->allStadiumsSorted())
        stadiumOrder.append(stadium.id);
    QCOMPARE(stadiumOrder, QStringList({"x", "1", "2", "10"}));
    // A stadium's page lists its matches by kick-off.
    QCOMPARE(ids(m_model->matchesForStadiumID(QStringLiteral("1"))), ids(m_model->allMatches()));
    QVERIFY(m_model->matchesForStadiumID(QStringLiteral("404")).isEmpty());
    QStringList teamsByName;
    for (const APITeam &team : m_model->allTeamsSorted())
        teamsByName.append(team.nameEn);
    QCOMPARE(teamsByName.first(2), QStringList({"Canada", "Czechia"}));

    // Standings lead with the followed teams' groups, taken by team name, then the rest in order.
    m_model->toggleFavorite(QStringLiteral("6"));
    QCOMPARE(m_model->groupsByInterest().mid(0, 3), QStringList({"C", "A", "B"}));
}

void ModelQueriesTest::teamDetail()
{
    const TeamDetailState southAfrica = m_model->teamDetailState(QStringLiteral("2"));
    QCOMPARE(southAfrica.summary.name, QStringLiteral("South Africa"));
    QCOMPARE(southAfrica.group, std::optional<QString>("A"));
    QCOMPARE(southAfrica.standing->position, 2);
    QCOMPARE(southAfrica.groupStanding->standings.size(), 3);
    QCOMPARE(ids(southAfrica.matches), QStringList({"1", "4"}));
    QCOMPARE(southAfrica.nextMatch->id, QStringLiteral("1"));
    QVERIFY(!southAfrica.latestResult);

    const TeamDetailState korea = m_model->teamDetailState(QStringLiteral("3"));
    QCOMPARE(korea.nextMatch->id, QStringLiteral("2")); // a live match is the next one
    QCOMPARE(korea.latestResult->id, QStringLiteral("10"));

    const TeamDetailState unknown = m_model->teamDetailState(QStringLiteral("99"));
    QCOMPARE(unknown.summary.name, QStringLiteral("Team 99"));
    QVERIFY(unknown.summary.code.isEmpty() && unknown.summary.flagURL.isEmpty());
    QVERIFY(!unknown.group && !unknown.standing && unknown.matches.isEmpty());
}

void ModelQueriesTest::trayTitle_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("pin"); // empty: nothing pinned
    QTest::addColumn<QString>("expectedMatch");

    // clang-format off
    QTest::newRow("auto takes the favourite") << "auto" << "" << "4";
    QTest::newRow("pinned live match") << "pinned" << "2" << "2";
    QTest::newRow("pinned match not live") << "pinned" << "1" << "4";
    QTest::newRow("auto keeps the pin stored") << "auto" << "2" << "4";
    // clang-format on
}

void ModelQueriesTest::trayTitle()
{
    QFETCH(QString, mode);
    QFETCH(QString, pin);
    QFETCH(QString, expectedMatch);
    if (!pin.isEmpty())
        m_model->menuBar().togglePinnedMatch(pin);
    m_model->menuBar().updateDisplayMode(mode);
    const auto expected = std::find_if(m_model->allMatches().cbegin(), m_model->allMatches().cend(),
                                       [&](const Match &match) { return match.id == expectedMatch; });
    QCOMPARE(m_model->trayTitle(), std::optional(expected->trayMenuBarTitle()));
    QCOMPARE(m_model->menuBar().pinnedLiveMatchID(), pin.isEmpty() ? std::nullopt : std::optional(pin));
}

void ModelQueriesTest::contestedKickoffs()
{
    QCOMPARE(m_model->contestedKickoffsCache().size(), 2);
    const auto concurrent = [this](const char *id) {
        for (const Match &match : m_model->allMatches()) {
            if (match.id == QLatin1StringView(id))
                return m_model->isConcurrentMatch(match);
        }
        return false;
    };
    QVERIFY(concurrent("3") && concurrent("6") && concurrent("9"));
    QVERIFY(!concurrent("8") && !concurrent("10")); // finished at a shared instant
    QVERIFY(!concurrent("1") && !concurrent("5"));  // alone, and undated

    m_model->applyMatches({}, false);
    m_model->rebuildGlobalCaches();
    QVERIFY(m_model->contestedKickoffsCache().isEmpty());
    QCOMPARE(m_model->trayTitle(), std::nullopt);
}

void ModelQueriesTest::teamSearch_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("expected"); // "name|group label"

    // clang-format off
    QTest::newRow("empty") << "  " << QStringList();
    QTest::newRow("name, trimmed, any case") << " SOUTH\n" << QStringList{"South Africa|Group A", "South Korea|Group A"};
    QTest::newRow("code") << "can" << QStringList{"Canada|Group B"};
    QTest::newRow("empty group name falls back") << "czech" << QStringList{"Czechia|"};
    QTest::newRow("team record's group") << "scotland" << QStringList{"Scotland|Group C"};
    // clang-format on
}

void ModelQueriesTest::teamSearch()
{
    QFETCH(QString, query);
    m_model->navigation().setTeamSearchText(query);
    QStringList found;
    for (const TeamSearchResult &result : m_model->teamSearchResults())
        found.append(result.name + u'|' + result.groupLabel.value_or(QString()));
    QTEST(found, "expected");
}

// Each calendar goes to the desktop's file handler as a file named for what it holds.
void ModelQueriesTest::addToCalendar()
{
    QVERIFY(!m_model->addMatchToCalendar(QStringLiteral("404")));
    QVERIFY(!m_model->addTeamToCalendar(QStringLiteral("99")));
    QVERIFY(m_openedFiles.isEmpty());

    QVERIFY(m_model->addMatchToCalendar(QStringLiteral("1")));
    QVERIFY(m_model->addTeamToCalendar(QStringLiteral("6")));
    QVERIFY(m_model->addFavoritesToCalendar());
    QStringList written; // file name, then the matches it holds
    for (const QString &path : std::as_const(m_openedFiles)) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        written.append(QFileInfo(path).fileName());
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith("UID:match-"))
                written.last() += u' ' + QString::fromUtf8(line.mid(10).split('@').first());
        }
    }
    // Undated matches (5 and 7) have no place in a calendar.
    QCOMPARE(written, QStringList({"match-1.ics 1", "team-6.ics 3 8", "favorites.ics 1 4"}));
}

QTEST_GUILESS_MAIN(ModelQueriesTest)
#include "ModelQueriesTest.moc"
