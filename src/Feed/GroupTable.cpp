#include "GroupTable.h"

#include <QHash>

#include <algorithm>
#include <tuple>

namespace GroupTable {

namespace {

QHash<QString, GroupRow> tally(const QStringList &teamIDs, const QList<GroupResult> &results)
{
    QHash<QString, GroupRow> rows;
    for (const QString &teamID : teamIDs)
        rows.insert(teamID, GroupRow{teamID});
    for (const GroupResult &result : results) {
        if (!rows.contains(result.homeTeamID) || !rows.contains(result.awayTeamID))
            continue;
        const auto record = [](GroupRow &row, int scored, int conceded) {
            ++row.played;
            row.goalsFor += scored;
            row.goalsAgainst += conceded;
            if (scored > conceded)
                ++row.won;
            else if (scored == conceded)
                ++row.drawn;
            else
                ++row.lost;
        };
        record(rows[result.homeTeamID], result.score[0], result.score[1]);
        record(rows[result.awayTeamID], result.score[1], result.score[0]);
    }
    return rows;
}

auto primaryKey(const GroupRow &row)
{
    return std::make_tuple(row.points(), row.goalDifference(), row.goalsFor);
}

} // namespace

QList<GroupRow> ranked(const GroupFact &group, const QList<GroupResult> &results, bool complete)
{
    const QHash<QString, GroupRow> rows = tally(group.drawOrder, results);
    const QStringList &lastResort = complete ? group.finalOrder : group.drawOrder;

    QStringList order = lastResort;
    std::stable_sort(order.begin(), order.end(), [&](const QString &a, const QString &b) {
        return primaryKey(rows[a]) > primaryKey(rows[b]);
    });

    // Each run of teams level on all three counts is ordered by the games among themselves.
    for (qsizetype first = 0; first < order.size();) {
        qsizetype last = first + 1;
        while (last < order.size() && primaryKey(rows[order[last]]) == primaryKey(rows[order[first]]))
            ++last;
        if (last - first > 1) {
            const QStringList tied = order.mid(first, last - first);
            QList<GroupResult> amongThem;
            for (const GroupResult &result : results) {
                if (tied.contains(result.homeTeamID) && tied.contains(result.awayTeamID))
                    amongThem.append(result);
            }
            const QHash<QString, GroupRow> headToHead = tally(tied, amongThem);
            std::stable_sort(order.begin() + first, order.begin() + last,
                             [&](const QString &a, const QString &b) {
                                 return primaryKey(headToHead[a]) > primaryKey(headToHead[b]);
                             });
        }
        first = last;
    }

    QList<GroupRow> table;
    table.reserve(order.size());
    for (const QString &teamID : std::as_const(order))
        table.append(rows[teamID]);
    return table;
}

} // namespace GroupTable
