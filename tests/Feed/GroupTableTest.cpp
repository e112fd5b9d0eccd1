#include "GroupTable.h"

#include <QTest>

// Ranking a group from its results. The real tournament never needed head-to-head or the last resort
// at an instant worth checking, so these tables are made up.
class GroupTableTest : public QObject {
    Q_OBJECT

private slots:
    void ranking_data();
    void ranking();
};

void GroupTableTest::ranking_data()
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

void GroupTableTest::ranking()
{
    QFETCH(QStringList, results);
    QFETCH(bool, complete);
    QFETCH(QString, order);

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
    QCOMPARE(ranked.join(u' '), order);
    QCOMPARE(matchesPlayed, 2 * results.size());
}

QTEST_GUILESS_MAIN(GroupTableTest)
#include "GroupTableTest.moc"
