#include "Metrics.h"
#include "PanelHarness.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

namespace {

ScreenLists *screenLists(const Panel &panel)
{
    return panel.model->property("lists").value<ScreenLists *>();
}

// The texts drawn on screen: those of visible items only, marked "card:" on a match's card.
void collectShownTexts(QQuickItem *item, QStringList &texts, bool onCard = false)
{
    if (!item->isVisible() || item->opacity() == 0)
        return;
    onCard = onCard || item->objectName().startsWith(QLatin1StringView("matchCard-")) ||
             item->objectName().startsWith(QLatin1StringView("bracketGame-"));
    if (item->inherits("QQuickText"))
        texts.append((onCard ? QStringLiteral("card:") : QString()) + item->property("text").toString());
    for (QQuickItem *child : item->childItems())
        collectShownTexts(child, texts, onCard);
}

QStringList cardOrder(const Panel &panel)
{
    return shownInOrder(panel.window->contentItem(), QStringLiteral("matchCard-"),
                        matchIDs(panel.model->matches()));
}

} // namespace

// Every screen of the panel but the settings, and the detail pages, driven with the mouse and keyboard
// through the window.
class PanelScreensTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void choosingADayChangesTheList();
    void pollUpdatesCardsInPlace();
    void statusLineFollowsPolls();
    void cardPinsAndOpensTheMatch();
    void tabbingScrollsTheFocusIntoView();
    void standingsShowTheGroupInOrderAndOpenTeams();
    void bracketShowsTheKnockoutTree();
    void markupInTheFeedShowsAsText();
    void hiddenScoresShowNowhere_data();
    void hiddenScoresShowNowhere();
    void searchAndFollowFromTheTeamsList();
    void teamPageShowsItsMatchesAndFiltersFixtures_data();
    void teamPageShowsItsMatchesAndFiltersFixtures();
    void unknownIdsSayNotFound_data();
    void unknownIdsSayNotFound();

private:
    void start(const QDateTime &at);
    void showSection(const QString &section);
    void typeText(const QString &text);
    QQuickItem *item(const QString &name) const { return m_panel->item(name); }

    // One engine for the run, as in the program: flag loads still pending when a panel goes must not
    // outlive the engine that started them.
    QQmlEngine m_engine;
    std::unique_ptr<Panel> m_panel;
};

void PanelScreensTest::initTestCase()
{
    Panel::prepareEngine(m_engine);
}

void PanelScreensTest::init()
{
    start(frozenAt);
    QTRY_VERIFY(m_panel->item(QStringLiteral("dateStrip")));
}

// Another day builds its cards once: one reset, one card per match.
void PanelScreensTest::choosingADayChangesTheList()
{
    QQuickItem *cards = m_panel->item(QStringLiteral("fixtureCards"));
    QVERIFY(cards);
    QSignalSpy built(cards, SIGNAL(itemAdded(int, QQuickItem *)));
    QSignalSpy resets(&screenLists(*m_panel)->fixtures, &QAbstractItemModel::modelReset);
    const QStringList today = matchIDs(m_panel->model->matches());
    m_panel->click(QStringLiteral("day-2026-06-28"));
    QCOMPARE(m_panel->model->navigation().selectedDate(), QStringLiteral("2026-06-28"));
    const QStringList tomorrow = matchIDs(m_panel->model->matches());
    QVERIFY(!tomorrow.isEmpty());
    QVERIFY(tomorrow != today);
    QTRY_COMPARE(cardOrder(*m_panel), tomorrow);
    QCOMPARE(resets.count(), 1);
    QCOMPARE(built.count(), tomorrow.size());
}

// With two matches running, a poll that brings one goal changes that one row and keeps every card.
void PanelScreensTest::pollUpdatesCardsInPlace()
{
    RecordListModel &fixtures = screenLists(*m_panel)->fixtures;
    const QStringList ids = matchIDs(m_panel->model->matches());
    QVERIFY(m_panel->model->matches().at(0).live() && m_panel->model->matches().at(1).live());
    QTRY_COMPARE(cardOrder(*m_panel), ids);
    QList<QPointer<QQuickItem>> cards;
    for (const QString &id : ids)
        cards.append(m_panel->item(QStringLiteral("matchCard-") + id));
    QSignalSpy built(m_panel->item(QStringLiteral("fixtureCards")), SIGNAL(itemAdded(int, QQuickItem *)));
    QSignalSpy changed(&fixtures, &QAbstractItemModel::dataChanged);
    QSignalSpy moved(&fixtures, &QAbstractItemModel::rowsMoved);
    QSignalSpy resets(&fixtures, &QAbstractItemModel::modelReset);

    // Match 68's home side scores at 21:30:30; both running clocks still read the same minute at 21:30:45.
    m_panel->pollAt(frozenAt.addSecs(45));
    QCOMPARE(changed.count(), 1);
    const int row = changed.constFirst().constFirst().value<QModelIndex>().row();
    QCOMPARE(fixtures.keys().at(row), QStringLiteral("68"));
    QCOMPARE(m_panel->model->matches().at(row).displayHomeScore(), QStringLiteral("1"));
    QCOMPARE(fixtures.keys(), ids);
    QCOMPARE(built.count(), 0);
    QCOMPARE(moved.count() + resets.count(), 0);
    for (qsizetype index = 0; index < ids.size(); ++index) {
        QVERIFY2(cards.at(index), qPrintable(ids.at(index)));
        QCOMPARE(m_panel->item(QStringLiteral("matchCard-") + ids.at(index)), cards.at(index).data());
    }
    QCOMPARE(cards.at(row)->property("match").value<Match>().displayHomeScore(), QStringLiteral("1"));
}

void PanelScreensTest::statusLineFollowsPolls()
{
    QQuickItem *line = m_panel->item(QStringLiteral("statusLine"));
    QVERIFY(line);
    m_panel->pollAt(frozenAt.addSecs(75));
    QVERIFY(m_panel->model->statusLine().startsWith(QStringLiteral("Updated ")));
    QCOMPARE(line->property("text").toString(), m_panel->model->statusLine());
}

// The card's pin sets the tray's mode and clears it again; the card itself opens its match.
void PanelScreensTest::cardPinsAndOpensTheMatch()
{
    const Match first = m_panel->model->matches().constFirst();
    m_panel->click(QStringLiteral("pin-") + first.id);
    QCOMPARE(m_panel->model->menuBar().pinnedLiveMatchID(), std::optional(first.id));
    QCOMPARE(m_panel->model->menuBar().displayMode(), TrayDisplayMode::pinned);
    m_panel->click(QStringLiteral("pin-") + first.id);
    QCOMPARE(m_panel->model->menuBar().pinnedLiveMatchID(), std::nullopt);
    QCOMPARE(m_panel->model->menuBar().displayMode(), TrayDisplayMode::automatic);

    m_panel->click(QStringLiteral("matchCard-") + first.id);
    QCOMPARE(m_panel->model->navigation().detailStack(), QList<PanelRoute>{PanelRoute::match(first.id)});
    QTRY_VERIFY(m_panel->item(QStringLiteral("scoreline")));
    QCOMPARE(m_panel->item(QStringLiteral("scoreline"))->property("text").toString(),
             first.displayHomeScore() + QStringLiteral(" \u2013 ") + first.displayAwayScore());
    // The page has slid in before its back button is in reach.
    QTRY_COMPARE(m_panel->item(QStringLiteral("backButton"))->mapToScene({}).x(), qreal(16));
    m_panel->click(QStringLiteral("backButton"));
    QVERIFY(m_panel->model->navigation().detailStack().isEmpty());
}

// Every list scrolls the item that takes the focus into sight (FadingScrollView); the day's cards stand
// for them all.
void PanelScreensTest::tabbingScrollsTheFocusIntoView()
{
    QQuickItem *last = m_panel->item(QStringLiteral("matchCard-") + m_panel->model->matches().constLast().id);
    const auto bottomOf = [](QQuickItem *item) { return item->mapToScene(QPointF(0, item->height())).y(); };
    QVERIFY2(bottomOf(last) > m_panel->window->height(), "the day's last card must start out of sight");
    for (int presses = 0; presses < 200 && m_panel->window->activeFocusItem() != last; ++presses)
        QTest::keyClick(m_panel->window, Qt::Key_Tab);
    QCOMPARE(m_panel->window->activeFocusItem(), last);
    QTRY_VERIFY(bottomOf(last) <= m_panel->window->height());
}

void PanelScreensTest::standingsShowTheGroupInOrderAndOpenTeams()
{
    m_panel->click(QStringLiteral("segment-standings"));
    QTRY_VERIFY(m_panel->item(QStringLiteral("groupPicker")));
    // The picker marks the group at the top of the list, and picking a group brings its table there.
    const QString first = screenLists(*m_panel)->groupTables.keys().constFirst();
    QTRY_COMPARE(m_panel->model->navigation().selectedGroup(), first);
    const qreal top = m_panel->item(QStringLiteral("qualificationLegend"))->mapToScene({}).y();
    m_panel->click(QStringLiteral("segment-F"));
    QCOMPARE(m_panel->model->navigation().selectedGroup(), QStringLiteral("F"));
    QTRY_COMPARE(qRound(m_panel->item(QStringLiteral("standingsTable-F"))->mapToScene({}).y()), qRound(top));
    // Scrolled, the list still leaves the picker its clicks.
    m_panel->click(QStringLiteral("segment-L"));
    QCOMPARE(m_panel->model->navigation().selectedGroup(), QStringLiteral("L"));
    const auto group = std::find_if(m_panel->model->standings().cbegin(), m_panel->model->standings().cend(),
                                    [](const GroupStanding &standing) { return standing.group == u'L'; });
    QVERIFY(group != m_panel->model->standings().cend());
    QStringList table;
    for (const StandingRow &row : group->standings)
        table.append(row.teamID);
    QCOMPARE(table.size(), 4);
    QTRY_COMPARE(shownInOrder(m_panel->window->contentItem(), QStringLiteral("standing-"), table), table);
    const QString leader = table.constFirst();
    m_panel->click(QStringLiteral("standing-") + leader);
    QCOMPARE(m_panel->model->navigation().detailStack(), QList<PanelRoute>{PanelRoute::team(leader)});
}

void PanelScreensTest::bracketShowsTheKnockoutTree()
{
    m_panel.reset();
    m_panel = std::make_unique<Panel>(Tournament::bundled(), m_engine, nullptr,
                                      QDateTime(QDate(2026, 6, 28), QTime(6, 0), QTimeZone::utc()));
    QVERIFY(QTest::qWaitForWindowExposed(m_panel->window));
    m_panel->model->navigation().setSection(Section::standings);
    QTRY_VERIFY(m_panel->item(QStringLiteral("segment-knockout")));
    m_panel->click(QStringLiteral("segment-knockout"));
    QTRY_VERIFY(m_panel->item(QStringLiteral("roundPicker")));

    // The round of 32 in bracket order, and a game opens its match.
    const QList<Match> firstRound = m_panel->model->bracket().rounds.constFirst().games;
    QCOMPARE(firstRound.size(), 16);
    QTRY_COMPARE(
        shownInOrder(m_panel->window->contentItem(), QStringLiteral("bracketGame-"), matchIDs(firstRound)),
        matchIDs(firstRound));
    const QString first = firstRound.constFirst().id;
    m_panel->click(QStringLiteral("bracketGame-") + first);
    QCOMPARE(m_panel->model->navigation().detailStack(), QList<PanelRoute>{PanelRoute::match(first)});
    QTRY_VERIFY(m_panel->item(QStringLiteral("matchHero")));
}

void PanelScreensTest::markupInTheFeedShowsAsText()
{
    QFile bundled(QStringLiteral(":/pitchlark/feed/tournament.json"));
    QVERIFY(bundled.open(QIODevice::ReadOnly));
    QJsonObject data = QJsonDocument::fromJson(bundled.readAll()).object();
    QJsonArray teams = data[QLatin1StringView("teams")].toArray();
    const QString markup = QStringLiteral("<b>Mexico</b>");
    QJsonObject mexico = teams.at(0).toObject();
    mexico[QLatin1StringView("name_en")] = markup;
    teams.replace(0, mexico);
    data[QLatin1StringView("teams")] = teams;
    QString error;
    const auto tournament = Tournament::fromJson(QJsonDocument(data).toJson(), &error);
    QVERIFY2(tournament, qPrintable(error));

    m_panel.reset();
    Panel panel(*tournament, m_engine);
    QVERIFY(QTest::qWaitForWindowExposed(panel.window));
    panel.model->navigation().openMatch(QStringLiteral("1"));
    panel.model->navigation().setSection(Section::standings);
    QTRY_VERIFY(panel.item(QStringLiteral("matchHero")));
    QList<QQuickItem *> texts;
    collectTexts(panel.window->contentItem(), texts);
    int shown = 0;
    for (QQuickItem *text : std::as_const(texts)) {
        if (!text->property("text").toString().contains(markup))
            continue;
        ++shown;
        QCOMPARE(text->property("textFormat").toInt(), int(Qt::PlainText));
    }
    QVERIFY(shown >= 2); // the match page and the group table
}

void PanelScreensTest::hiddenScoresShowNowhere_data()
{
    QTest::addColumn<QDateTime>("at");
    QTest::addColumn<QString>("screen"); // fixtures, standings, bracket, match:<id> or team:<id>

    const QDateTime groupsLive = frozenAt;
    const QDateTime afterFinal(QDate(2026, 7, 20), QTime(12, 0), QTimeZone::utc());
    // clang-format off
    QTest::newRow("fixtures, group stage") << groupsLive << "fixtures";
    QTest::newRow("standings, group stage") << groupsLive << "standings";
    QTest::newRow("team page") << groupsLive << "team:1";
    QTest::newRow("the opening match") << groupsLive << "match:1";
    QTest::newRow("bracket, all played") << afterFinal << "bracket";
    QTest::newRow("a shoot-out") << afterFinal << "match:74";
    QTest::newRow("the final") << afterFinal << "match:104";
    // clang-format on
}

void PanelScreensTest::hiddenScoresShowNowhere()
{
    QFETCH(QDateTime, at);
    QFETCH(QString, screen);
    start(at);
    AppModel &model = *m_panel->model;
    model.setHideScores(true);
    const QString id = screen.section(u':', 1);
    if (screen == QLatin1StringView("standings") || screen == QLatin1StringView("bracket")) {
        model.navigation().setSection(Section::standings);
        model.navigation().setShowsBracket(screen == QLatin1StringView("bracket"));
    } else if (screen.startsWith(QLatin1StringView("match:"))) {
        model.navigation().openMatch(id);
    } else if (screen.startsWith(QLatin1StringView("team:"))) {
        model.navigation().openTeam(id);
    }
    QTest::qWait(400); // the page's slide, before its texts are read

    // "2 – 1", "2–1", a card's goals, "win on penalties", "After extra time", "AET", "Pens", a champion,
    // a table's points.
    static const QRegularExpression giveaway(QStringLiteral(
        "\\d\\s?\u2013\\s?\\d|^card:\\d+$|\\bwin\\b|extra time|AET$|Pens$|Champion|\\bPTS\\b"));
    QStringList texts;
    collectShownTexts(m_panel->window->contentItem(), texts);
    QVERIFY(!texts.isEmpty());
    for (const QString &text : std::as_const(texts))
        QVERIFY2(!giveaway.match(text).hasMatch(), qPrintable(screen + QStringLiteral(": ") + text));
    if (screen == QLatin1StringView("standings"))
        QVERIFY(m_panel->item(QStringLiteral("tableHidden-") + model.standings().constFirst().group));
    if (!screen.startsWith(QLatin1StringView("match:")))
        return;

    // Revealing this match shows its score, and only its score; hiding it again veils it once more.
    m_panel->clickWhenSettled(QStringLiteral("reveal-") + id);
    QTRY_VERIFY(m_panel->item(QStringLiteral("scoreline"))->property("text").toString().contains(u'\u2013'));
    QCOMPARE(model.property("revealedMatchIDs").toStringList(), QStringList{id});
    QVERIFY(!model.isScoreHidden(id));
    m_panel->clickWhenSettled(QStringLiteral("hideAgain-") + id);
    QTRY_COMPARE(m_panel->item(QStringLiteral("scoreline"))->property("text").toString(),
                 QStringLiteral("vs"));
}

void PanelScreensTest::start(const QDateTime &at)
{
    m_panel.reset();
    m_panel = std::make_unique<Panel>(Tournament::bundled(), m_engine, nullptr, at);
    QVERIFY(QTest::qWaitForWindowExposed(m_panel->window));
}

void PanelScreensTest::showSection(const QString &section)
{
    QTRY_VERIFY(item(QStringLiteral("segment-") + section));
    m_panel->click(QStringLiteral("segment-") + section);
    QCOMPARE(m_panel->model->navigation().section(), *sectionFromRawValue(section));
}

void PanelScreensTest::typeText(const QString &text)
{
    // QTest types whole strings only into widgets; a window takes them key by key.
    for (const QChar character : text)
        QTest::keyClick(m_panel->window, character.toLatin1());
}

// Which fields a search matches, and in what order, is the model's (ModelQueriesTest::teamSearch); this is
// typing, the empty note, the clear button, and the star on a found row.
void PanelScreensTest::searchAndFollowFromTheTeamsList()
{
    showSection(QStringLiteral("favorites"));
    QTRY_VERIFY(item(QStringLiteral("favoritesEmpty")));

    showSection(QStringLiteral("teams"));
    const QStringList every = m_panel->model->teamsByID().keys();
    const auto shownTeams = [&] {
        return shownInOrder(m_panel->window->contentItem(), QStringLiteral("teamRow-"), every);
    };
    QTRY_COMPARE(shownTeams().size(), 48);
    m_panel->click(QStringLiteral("teamSearch"));
    typeText(QStringLiteral("zq"));
    QCOMPARE(m_panel->model->navigation().teamSearchText(), QStringLiteral("zq"));
    QTRY_VERIFY(shownTeams().isEmpty());
    QVERIFY(item(QStringLiteral("teamsEmpty")));
    // The clear button empties the search and brings every team back.
    m_panel->click(QStringLiteral("clearSearch"));
    QVERIFY(m_panel->model->navigation().teamSearchText().isEmpty());
    QTRY_COMPARE(shownTeams().size(), 48);
    QVERIFY(!item(QStringLiteral("teamsEmpty")));

    m_panel->click(QStringLiteral("teamSearch"));
    typeText(QStringLiteral("mex"));
    QTRY_COMPARE(shownTeams(), QStringList{"1"});
    QCOMPARE(item(QStringLiteral("teamRow-1"))->property("groupLabel").toString(), QStringLiteral("Group A"));
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

void PanelScreensTest::teamPageShowsItsMatchesAndFiltersFixtures_data()
{
    QTest::addColumn<QDateTime>("at");
    QTest::addColumn<QString>("next");
    QTest::addColumn<QString>("latest");

    // Mexico opens with match 1 on 11 June and plays its last, 92, on 6 July. Which match is next at
    // the moments between is the model's (ModelQueriesTest::teamDetail); these are the empty sections.
    QTest::newRow("before the opener") << frozenAt.addDays(-17) << "1" << QString();
    QTest::newRow("after the last match") << frozenAt.addDays(23) << QString() << "92";
}

void PanelScreensTest::teamPageShowsItsMatchesAndFiltersFixtures()
{
    QFETCH(QDateTime, at);
    QFETCH(QString, next);
    QFETCH(QString, latest);

    start(at);
    showSection(QStringLiteral("standings"));
    const QString segment = QStringLiteral("segment-standings");
    const qreal sectionX = item(segment)->mapToScene({}).x();
    // Two pages deep: a match, then one of its teams.
    m_panel->model->navigation().openMatch(QStringLiteral("1"));
    m_panel->model->navigation().openTeam(QStringLiteral("1"));
    // Both have slid in once the section page sits two panel widths to the left.
    QTRY_COMPARE(item(segment)->mapToScene({}).x(), sectionX - 2 * m_panel->window->width());
    // The match page is still drawn beneath the team's: read the title on the hero's page.
    QTRY_VERIFY(item(QStringLiteral("teamHero")));
    QQuickItem *page = item(QStringLiteral("teamHero"));
    while (!findVisibleItem(page, QStringLiteral("detailTitle")))
        page = page->parentItem();
    QCOMPARE(findVisibleItem(page, QStringLiteral("detailTitle"))->property("text").toString(),
             QStringLiteral("Mexico"));

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
    QStringList listed = shownInOrder(m_panel->window->contentItem(), QStringLiteral("matchCard-"), ids);
    listed.sort();
    mexico.sort();
    QCOMPARE(listed, mexico);
    // Back on the section page, which has slid into place.
    QTRY_COMPARE(item(QStringLiteral("dateStrip"))->mapToScene({}).x(), qreal(Metrics::gutter));
}

void PanelScreensTest::unknownIdsSayNotFound_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("note");
    QTest::addColumn<QString>("title");

    // clang-format off
    QTest::newRow("team, not a number") << "team" << "<b>x</b>" << "teamNotFound" << "Team <b>x</b>";
    QTest::newRow("stadium, empty") << "stadium" << "" << "stadiumNotFound" << "Stadium";
    QTest::newRow("match") << "match" << "999" << "matchNotFound" << "Match";
    // clang-format on
}

void PanelScreensTest::unknownIdsSayNotFound()
{
    QFETCH(QString, kind);
    QFETCH(QString, id);
    QFETCH(QString, note);
    QFETCH(QString, title);

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

QTEST_MAIN(PanelScreensTest)
#include "PanelScreensTest.moc"
