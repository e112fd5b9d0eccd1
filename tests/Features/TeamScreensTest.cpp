#include "Metrics.h"
#include "PanelHarness.h"

#include <QTest>

#include <algorithm>

namespace {

QDateTime utc(int month, int day, int hour, int minute = 0)
{
    return {QDate(2026, month, day), QTime(hour, minute), QTimeZone::utc()};
}

} // namespace

// The teams, stadiums and favourites screens and the team and stadium pages, driven through the window.
class TeamScreensTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void searchShowsTheMatchingTeams_data();
    void searchShowsTheMatchingTeams();
    void followingFromTheTeamsListFillsFavorites();
    void teamPageShowsNextMatchAndLatestResult_data();
    void teamPageShowsNextMatchAndLatestResult();
    void stadiumPageListsItsMatchesByKickoff_data();
    void stadiumPageListsItsMatchesByKickoff();
    void showFixturesFiltersAndReturnsToTheSection();
    void unknownIdsSayNotFound_data();
    void unknownIdsSayNotFound();

private:
    void start(const QDateTime &at = frozenAt);
    void showSection(const QString &section);
    void typeText(const QString &text);
    QQuickItem *item(const QString &name) const { return m_panel->item(name); }

    QQmlEngine m_engine;
    std::unique_ptr<Panel> m_panel;
};

void TeamScreensTest::initTestCase()
{
    Panel::prepareEngine(m_engine);
}

void TeamScreensTest::cleanup()
{
    m_panel.reset();
}

void TeamScreensTest::start(const QDateTime &at)
{
    m_panel = std::make_unique<Panel>(Tournament::bundled(), m_engine, nullptr, at);
    QVERIFY(QTest::qWaitForWindowExposed(m_panel->window));
}

void TeamScreensTest::showSection(const QString &section)
{
    QTRY_VERIFY(item(QStringLiteral("segment-") + section));
    m_panel->click(QStringLiteral("segment-") + section);
    QCOMPARE(m_panel->model->navigation().section(), *sectionFromRawValue(section));
}

void TeamScreensTest::typeText(const QString &text)
{
    // QTest types whole strings only into widgets; a window takes them key by key.
    for (const QChar character : text)
        QTest::keyClick(m_panel->window, character.toLatin1());
}

void TeamScreensTest::searchShowsTheMatchingTeams_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QString>("firstGroup");

    // Which fields a search matches is the model's (ModelQueriesTest); this is typing, the rows and the
    // empty note.
    // clang-format off
    QTest::newRow("iso2 code only") << "za" << QStringList{"2"} << "Group A";
    QTest::newRow("part of names, by name") << "pa" << QStringList{"22", "48", "14", "29"} << "Group F";
    QTest::newRow("nothing") << "zq" << QStringList{} << "";
    // clang-format on
}

void TeamScreensTest::searchShowsTheMatchingTeams()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, shown);
    QFETCH(QString, firstGroup);

    start();
    showSection(QStringLiteral("teams"));
    const QStringList every = m_panel->model->teamsByID().keys();
    QTRY_COMPARE(shownInOrder(m_panel->window->contentItem(), QStringLiteral("teamRow-"), every).size(), 48);

    m_panel->click(QStringLiteral("teamSearch"));
    typeText(typed);
    QCOMPARE(m_panel->model->navigation().teamSearchText(), typed);
    QTRY_COMPARE(shownInOrder(m_panel->window->contentItem(), QStringLiteral("teamRow-"), every), shown);
    QCOMPARE(item(QStringLiteral("teamsEmpty")) != nullptr, shown.isEmpty());
    if (!shown.isEmpty()) {
        QCOMPARE(item(QStringLiteral("teamRow-") + shown.constFirst())->property("groupLabel").toString(),
                 firstGroup);
    }

    // The clear button empties the search and brings every team back.
    m_panel->click(QStringLiteral("clearSearch"));
    QVERIFY(m_panel->model->navigation().teamSearchText().isEmpty());
    QTRY_COMPARE(shownInOrder(m_panel->window->contentItem(), QStringLiteral("teamRow-"), every).size(), 48);
}

void TeamScreensTest::followingFromTheTeamsListFillsFavorites()
{
    start();
    showSection(QStringLiteral("favorites"));
    QTRY_VERIFY(item(QStringLiteral("favoritesEmpty")));

    showSection(QStringLiteral("teams"));
    QTRY_VERIFY(item(QStringLiteral("teamSearch")));
    m_panel->click(QStringLiteral("teamSearch"));
    typeText(QStringLiteral("mex"));
    QTRY_VERIFY(item(QStringLiteral("followStar-1")));
    QCOMPARE(item(QStringLiteral("followStar-1"))->property("accessibleName").toString(),
             QStringLiteral("Follow Mexico"));
    m_panel->click(QStringLiteral("followStar-1"));
    QVERIFY(m_panel->model->isFavorite(QStringLiteral("1")));
    // The star takes the click; the row behind it does not open the team.
    QVERIFY(m_panel->model->navigation().detailStack().isEmpty());

    showSection(QStringLiteral("favorites"));
    QTRY_VERIFY(item(QStringLiteral("favoriteTeams")));
    QVERIFY(!item(QStringLiteral("favoritesEmpty")));
    QVERIFY(findVisibleItem(item(QStringLiteral("favoriteTeams")), QStringLiteral("teamRow-1")));
    QStringList followedMatches;
    for (const Match &match : m_panel->model->favoriteMatches())
        followedMatches.append(match.id);
    QVERIFY(!followedMatches.isEmpty());
    QTRY_COMPARE(shownInOrder(m_panel->window->contentItem(), QStringLiteral("matchCard-"),
                              matchIDs(m_panel->model->allMatches())),
                 followedMatches);

    // Un-starring from the keyboard takes the team off the list again.
    item(QStringLiteral("followStar-1"))->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(m_panel->window, Qt::Key_Space);
    QVERIFY(!m_panel->model->isFavorite(QStringLiteral("1")));
    QTRY_VERIFY(item(QStringLiteral("favoritesEmpty")));
    QVERIFY(!item(QStringLiteral("teamRow-1")));
}

void TeamScreensTest::teamPageShowsNextMatchAndLatestResult_data()
{
    QTest::addColumn<QDateTime>("at");
    QTest::addColumn<QString>("next");
    QTest::addColumn<QString>("latest");

    // Mexico's group matches: 1 on 11 June, 25 on 19 June, 52 on 25 June; its last is 92 on 6 July.
    // clang-format off
    QTest::newRow("before the opener") << utc(6, 10, 12) << "1" << "";
    QTest::newRow("between matches") << utc(6, 20, 12) << "52" << "25";
    QTest::newRow("while playing") << utc(6, 25, 1, 30) << "52" << "25";
    QTest::newRow("after the last match") << utc(7, 20, 12) << "" << "92";
    // clang-format on
}

void TeamScreensTest::teamPageShowsNextMatchAndLatestResult()
{
    QFETCH(QDateTime, at);
    QFETCH(QString, next);
    QFETCH(QString, latest);

    start(at);
    m_panel->model->navigation().openTeam(QStringLiteral("1"));
    QTRY_VERIFY(item(QStringLiteral("teamHero")));
    QCOMPARE(item(QStringLiteral("detailTitle"))->property("text").toString(), QStringLiteral("Mexico"));

    const QStringList ids = matchIDs(m_panel->model->allMatches());
    QQuickItem *nextSection = item(QStringLiteral("nextMatch"));
    QCOMPARE(nextSection ? shownInOrder(nextSection, QStringLiteral("matchCard-"), ids) : QStringList(),
             next.isEmpty() ? QStringList() : QStringList{next});
    QQuickItem *latestSection = item(QStringLiteral("latestResult"));
    QCOMPARE(latestSection ? shownInOrder(latestSection, QStringLiteral("matchCard-"), ids) : QStringList(),
             latest.isEmpty() ? QStringList() : QStringList{latest});

    // Mexico's row, and only it, is picked out in its group's table.
    QQuickItem *table = item(QStringLiteral("teamGroupTable"));
    QVERIFY(table);
    for (const QString &teamID : {QStringLiteral("1"), QStringLiteral("2")}) {
        QQuickItem *row = findVisibleItem(table, QStringLiteral("standing-") + teamID);
        QVERIFY2(row, qPrintable(teamID));
        QCOMPARE(row->property("highlighted").toBool(), teamID == u'1');
    }
}

void TeamScreensTest::stadiumPageListsItsMatchesByKickoff_data()
{
    QTest::addColumn<QString>("stadiumID");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("capacity");
    QTest::addColumn<QStringList>("matches");

    // clang-format off
    QTest::newRow("Azteca") << "1" << "Estadio Azteca" << "83,000" << QStringList{"1", "23", "52", "79", "92"};
    QTest::newRow("Akron") << "2" << "Estadio Akron" << "48,000" << QStringList{"2", "25", "47", "66"};
    QTest::newRow("BMO Field") << "12" << "BMO Field" << "45,000" << QStringList{"3", "24", "33", "46", "61", "83"};
    // clang-format on
}

void TeamScreensTest::stadiumPageListsItsMatchesByKickoff()
{
    QFETCH(QString, stadiumID);
    QFETCH(QString, name);
    QFETCH(QString, capacity);
    QFETCH(QStringList, matches);

    start();
    showSection(QStringLiteral("stadiums"));
    const QString row = QStringLiteral("stadiumRow-") + stadiumID;
    QTRY_VERIFY(item(row));
    QCOMPARE(item(row)->property("accessibleName").toString(), QStringLiteral("Open ") + name);
    QCOMPARE(item(QStringLiteral("capacity-") + stadiumID)->property("text").toString(), capacity);

    // Opened from the keyboard, as a Tab user would; the list scrolls the focused row into sight.
    item(row)->forceActiveFocus(Qt::TabFocusReason);
    QTRY_VERIFY(item(row)->mapToScene({0, item(row)->height()}).y() <= m_panel->window->height());
    QTest::keyClick(m_panel->window, Qt::Key_Return);
    QCOMPARE(m_panel->model->navigation().detailStack(), QList<PanelRoute>{PanelRoute::stadium(stadiumID)});
    QTRY_VERIFY(item(QStringLiteral("stadiumMatches")));
    QCOMPARE(item(QStringLiteral("detailTitle"))->property("text").toString(), name);
    QCOMPARE(item(QStringLiteral("stadiumCapacity"))->property("value").toString(), capacity);
    QTRY_COMPARE(shownInOrder(item(QStringLiteral("stadiumMatches")), QStringLiteral("matchCard-"),
                              matchIDs(m_panel->model->allMatches())),
                 matches);
}

void TeamScreensTest::showFixturesFiltersAndReturnsToTheSection()
{
    start();
    showSection(QStringLiteral("standings"));
    const QString segment = QStringLiteral("segment-standings");
    QTRY_VERIFY(item(segment));
    const qreal sectionX = item(segment)->mapToScene({}).x();
    // Two pages deep: a match, then one of its teams.
    m_panel->model->navigation().openMatch(QStringLiteral("1"));
    m_panel->model->navigation().openTeam(QStringLiteral("1"));
    // Both have slid in once the section page sits two panel widths to the left.
    QTRY_COMPARE(item(segment)->mapToScene({}).x(), sectionX - 2 * m_panel->window->width());
    QTRY_VERIFY(item(QStringLiteral("showFixtures")));
    m_panel->click(QStringLiteral("showFixtures"));
    QCOMPARE(m_panel->model->navigation().selectedTeamFilterID(), std::optional(QStringLiteral("1")));
    QCOMPARE(m_panel->model->navigation().section(), Section::fixtures);
    QVERIFY(m_panel->model->navigation().detailStack().isEmpty());

    QStringList mexico;
    for (const Match &match : m_panel->model->allMatches()) {
        if (match.homeTeamID == u'1' || match.awayTeamID == u'1')
            mexico.append(match.id);
    }
    // Its matches on every day, not only the selected one.
    QVERIFY(mexico.size() >= 3);
    QTRY_VERIFY(item(QStringLiteral("clearTeamFilter")));
    QStringList listed = shownInOrder(m_panel->window->contentItem(), QStringLiteral("matchCard-"),
                                      matchIDs(m_panel->model->allMatches()));
    listed.sort();
    mexico.sort();
    QCOMPARE(listed, mexico);
    // Back on the section page, which has slid into place.
    QTRY_COMPARE(item(QStringLiteral("dateStrip"))->mapToScene({}).x(), qreal(Metrics::gutter));
}

void TeamScreensTest::unknownIdsSayNotFound_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("note");
    QTest::addColumn<QString>("title");

    // clang-format off
    QTest::newRow("team") << "team" << "999" << "teamNotFound" << "Team 999";
    QTest::newRow("team, not a number") << "team" << "<b>x</b>" << "teamNotFound" << "Team <b>x</b>";
    QTest::newRow("stadium") << "stadium" << "999" << "stadiumNotFound" << "Stadium";
    QTest::newRow("stadium, empty") << "stadium" << "" << "stadiumNotFound" << "Stadium";
    QTest::newRow("match") << "match" << "999" << "matchNotFound" << "Match";
    // clang-format on
}

void TeamScreensTest::unknownIdsSayNotFound()
{
    QFETCH(QString, kind);
    QFETCH(QString, id);
    QFETCH(QString, note);
    QFETCH(QString, title);

    start();
    m_panel->model->navigation().open(kind == u"team"    ? PanelRoute::team(id)
                                      : kind == u"match" ? PanelRoute::match(id)
                                                         : PanelRoute::stadium(id));
    QTRY_VERIFY(item(note));
    QCOMPARE(item(QStringLiteral("detailTitle"))->property("text").toString(), title);
    QVERIFY(!item(QStringLiteral("teamHero")));
    QVERIFY(!item(QStringLiteral("stadiumHero")));
    QVERIFY(!item(QStringLiteral("matchHero")));
    QVERIFY(!item(QStringLiteral("showFixtures")));
}

QTEST_MAIN(TeamScreensTest)
#include "TeamScreensTest.moc"
