#include "FeedServer.h"
#include "ModelFixture.h"

#include <QAbstractItemModelTester>
#include <QTest>

// The screens' list models against the model's own queries, walking the replayed tournament forward
// through seven instants with the list models updated in place at each, as polls would.
class ScreenListsTest : public QObject {
    Q_OBJECT

private slots:
    void listsFollowTheQueries();
};

void ScreenListsTest::listsFollowTheQueries()
{
    const QDateTime opening(QDate(2026, 6, 11), QTime(19, 30), QTimeZone::utc());
    // Group days with live matches, busy evenings, the last group round and the knockouts.
    const QList<QDateTime> instants = {
        opening,
        opening.addSecs(50 * 60),
        QDateTime(QDate(2026, 6, 14), QTime(22, 40), QTimeZone::utc()),
        QDateTime(QDate(2026, 6, 22), QTime(1, 30), QTimeZone::utc()),
        QDateTime(QDate(2026, 6, 27), QTime(21, 30), QTimeZone::utc()),
        QDateTime(QDate(2026, 7, 2), QTime(18, 0), QTimeZone::utc()),
        QDateTime(QDate(2026, 7, 19), QTime(21, 0), QTimeZone::utc()),
    };
    QDateTime now = instants.constFirst();
    FeedServer feed(Tournament::bundled(), TournamentClock::frozen(now));
    ModelFixture fixture;
    const auto model = fixture.makeModel([&now] { return now; });
    const ScreenLists &lists = model->screenLists();
    // Every insert, move, removal and change the lists report must be consistent with their rows.
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
    for (QAbstractItemModel *list : lists.findChildren<QAbstractItemModel *>(Qt::FindDirectChildrenOnly))
        testers.push_back(std::make_unique<QAbstractItemModelTester>(
            list, QAbstractItemModelTester::FailureReportingMode::QtTest));
    QCOMPARE(testers.size(), size_t(9));
    const auto decoded = [&feed](FeedEndpoint endpoint, Instant at) { return feed.body(endpoint, at); };

    for (const QDateTime &instant : instants) {
        now = instant;
        const Instant at = instantFromDateTime(instant);
        model->applyTeams(APITeamsResponse::decode(decoded(FeedEndpoint::Teams, at))->teams);
        model->applyStadiums(APIStadiumsResponse::decode(decoded(FeedEndpoint::Stadiums, at))->stadiums);
        model->applyGroups(APIGroupsResponse::decode(decoded(FeedEndpoint::Groups, at))->groups);
        model->applyMatches(APIGamesResponse::decode(decoded(FeedEndpoint::Games, at))->games, false);
        if (instant == instants.constFirst()) {
            for (const char *teamID : {"1", "14", "27"})
                model->toggleFavorite(QString::fromLatin1(teamID));
            model->navigation().setTeamSearchText(QStringLiteral("an"));
        }
        model->navigation().setSelectedDate(WCFormatters::shared().dateKey(instant));
        model->navigation().setSelectedGroup(model->allGroups().at(int(instants.indexOf(instant)) % 12));
        model->applySelectedDateFilter();
        model->rebuildGlobalCaches();

        const QByteArray when = instant.toString(Qt::ISODate).toUtf8();
        QVERIFY2(!model->matches().isEmpty(), when);
        QCOMPARE(lists.fixtures.records(), model->matches());
        QCOMPARE(lists.liveMatches.records(), model->liveMatchesCache());
        QCOMPARE(lists.favoriteTeams.records(), model->favoriteTeamsCache());
        const QList<Match> favorites = model->favoriteMatches();
        QCOMPARE(lists.favoriteLive.records() + lists.favoriteComing.records() +
                     lists.favoriteResults.records(),
                 favorites);
        QVERIFY2(std::all_of(lists.favoriteLive.rows().cbegin(), lists.favoriteLive.rows().cend(),
                             [](const QVariant &row) { return row.value<Match>().live(); }),
                 when);
        QVERIFY2(std::none_of(lists.favoriteComing.rows().cbegin(), lists.favoriteComing.rows().cend(),
                              [](const QVariant &row) {
                                  const Match match = row.value<Match>();
                                  return match.live() || match.status == MatchStatus::finished;
                              }),
                 when);
        QStringList tableOrder;
        for (const GroupStanding &table : lists.groupTables.records())
            tableOrder.append(table.group);
        QCOMPARE(tableOrder, model->groupsByInterest());
        QCOMPARE(lists.teams.records(), model->teamSearchResults());
        QCOMPARE(lists.stadiums.records(), model->allStadiumsSorted());
    }
}

QTEST_GUILESS_MAIN(ScreenListsTest)
#include "ScreenListsTest.moc"
