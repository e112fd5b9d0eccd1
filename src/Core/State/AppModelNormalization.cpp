#include "AppModel.h"

#include "KnockoutOutcomes.h"

#include <algorithm>

Match AppModel::normalizeMatch(const APIGame &game) const
{
    return Normalization::normalizeMatch(game, m_teamsByID, m_stadiumsByID);
}

GroupStanding AppModel::normalizeStanding(const APIGroup &group) const
{
    return Normalization::normalizeStanding(group, m_teamsByID);
}

namespace {

// A new table keyed by id; when two records share an id the first one wins.
template<typename Record>
QHash<QString, Record> tableByID(const QList<Record> &records)
{
    QHash<QString, Record> table;
    table.reserve(records.size());
    for (const Record &record : records) {
        if (!table.contains(record.id))
            table.insert(record.id, record);
    }
    return table;
}

} // namespace

void AppModel::applyTeams(const QList<APITeam> &teams)
{
    if (!teams.isEmpty())
        setTeamsByID(tableByID(teams));
}

void AppModel::applyStadiums(const QList<APIStadium> &stadiums)
{
    if (!stadiums.isEmpty())
        setStadiumsByID(tableByID(stadiums));
}

void AppModel::applyGroups(const QList<APIGroup> &groups)
{
    if (groups.isEmpty())
        return;
    QList<GroupStanding> standings;
    standings.reserve(groups.size());
    for (const APIGroup &group : groups)
        standings.append(normalizeStanding(group));
    std::stable_sort(standings.begin(), standings.end(),
                     [](const GroupStanding &a, const GroupStanding &b) { return a.group < b.group; });
    // An unchanged table is not published again, so it causes no redraw.
    if (standings != m_standings)
        setStandings(standings);
}

void AppModel::applyMatches(const QList<APIGame> &games, bool fireEvents)
{
    QList<Match> matches;
    matches.reserve(games.size());
    for (const APIGame &game : games)
        matches.append(normalizeMatch(game));
    KnockoutOutcomes::derive(matches);
    std::stable_sort(matches.begin(), matches.end(), &AppModel::sortMatchesByKickoff);
    // Alerts compare with the snapshots of the previous fetch, before allMatches changes.
    if (fireEvents)
        processNotificationEvents(matches);
    setAllMatches(matches);
}
