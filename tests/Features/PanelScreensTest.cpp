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

// The fixtures, standings and match screens, driven with the mouse and keyboard through the window.
class PanelScreensTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void choosingADayChangesTheList();
    void pollUpdatesCardsInPlace();
    void statusLineFollowsPolls();
    void cardOpensTheMatchAndBackReturns();
    void starFollowsATeam();
    void tabbingScrollsTheFocusIntoView();
    void pinSwitchesTheMenuBarMode();
    void standingsShowTheGroupInOrderAndOpenTeams();
    void bracketShowsTheKnockoutTree_data();
    void bracketShowsTheKnockoutTree();
    void markupInTheFeedShowsAsText();
    void hiddenScoresShowNowhere_data();
    void hiddenScoresShowNowhere();

private:
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
    m_panel = std::make_unique<Panel>(Tournament::bundled(), m_engine);
    QVERIFY(QTest::qWaitForWindowExposed(m_panel->window));
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

void PanelScreensTest::cardOpensTheMatchAndBackReturns()
{
    const Match first = m_panel->model->matches().constFirst();
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

void PanelScreensTest::starFollowsATeam()
{
    const QString teamID = m_panel->model->matches().constFirst().homeTeamID;
    const QString star = QStringLiteral("follow-") + teamID;
    m_panel->click(star);
    QVERIFY(m_panel->model->isFavorite(teamID));

    // The same star from the keyboard.
    m_panel->item(star)->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(m_panel->window, Qt::Key_Space);
    QVERIFY(!m_panel->model->isFavorite(teamID));
}

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

void PanelScreensTest::pinSwitchesTheMenuBarMode()
{
    const Match live = m_panel->model->matches().constFirst();
    m_panel->click(QStringLiteral("pin-") + live.id);
    QCOMPARE(m_panel->model->menuBar().pinnedLiveMatchID(), std::optional(live.id));
    QCOMPARE(m_panel->model->menuBar().displayMode(), TrayDisplayMode::pinned);
    m_panel->click(QStringLiteral("pin-") + live.id);
    QCOMPARE(m_panel->model->menuBar().pinnedLiveMatchID(), std::nullopt);
    QCOMPARE(m_panel->model->menuBar().displayMode(), TrayDisplayMode::automatic);
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

void PanelScreensTest::bracketShowsTheKnockoutTree_data()
{
    QTest::addColumn<QDateTime>("at");
    QTest::addColumn<QString>("firstHomeSide"); // of the first round's first game in bracket order

    QTest::newRow("group stage running")
        << QDateTime(QDate(2026, 6, 20), QTime(12, 0), QTimeZone::utc()) << "Winner Group E";
    QTest::newRow("group stage over")
        << QDateTime(QDate(2026, 6, 28), QTime(6, 0), QTimeZone::utc()) << "Germany";
}

void PanelScreensTest::bracketShowsTheKnockoutTree()
{
    QFETCH(QDateTime, at);
    QFETCH(QString, firstHomeSide);
    m_panel.reset();
    m_panel = std::make_unique<Panel>(Tournament::bundled(), m_engine, nullptr, at);
    QVERIFY(QTest::qWaitForWindowExposed(m_panel->window));
    m_panel->model->navigation().setSection(Section::standings);
    QTRY_VERIFY(m_panel->item(QStringLiteral("segment-knockout")));
    m_panel->click(QStringLiteral("segment-knockout"));
    QTRY_VERIFY(m_panel->item(QStringLiteral("roundPicker")));

    // The round of 32 in bracket order, each side named or waiting for its slot, without a follow star.
    const QList<Match> firstRound = m_panel->model->bracket().rounds.constFirst().games;
    QCOMPARE(firstRound.size(), 16);
    QTRY_COMPARE(
        shownInOrder(m_panel->window->contentItem(), QStringLiteral("bracketGame-"), matchIDs(firstRound)),
        matchIDs(firstRound));
    const Match &first = firstRound.constFirst();
    QCOMPARE(first.homeTeam, firstHomeSide);
    QVERIFY(m_panel->item(QStringLiteral("bracketGame-") + first.id)
                ->property("accessibleName")
                .toString()
                .startsWith(first.homeTeam));

    m_panel->click(QStringLiteral("bracketGame-") + first.id);
    QCOMPARE(m_panel->model->navigation().detailStack(), QList<PanelRoute>{PanelRoute::match(first.id)});
    QTRY_VERIFY(m_panel->item(QStringLiteral("matchHero")));
    QCOMPARE(bool(m_panel->item(QStringLiteral("follow-0"))), false);
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
    m_panel.reset();
    m_panel = std::make_unique<Panel>(Tournament::bundled(), m_engine, nullptr, at);
    QVERIFY(QTest::qWaitForWindowExposed(m_panel->window));
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

QTEST_MAIN(PanelScreensTest)
#include "PanelScreensTest.moc"
