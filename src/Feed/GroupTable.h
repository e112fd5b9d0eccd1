#pragma once

#include "Tournament.h"

#include <QList>
#include <QString>

struct GroupRow {
    QString teamID;
    int played = 0;
    int won = 0;
    int drawn = 0;
    int lost = 0;
    int goalsFor = 0;
    int goalsAgainst = 0;

    int points() const { return 3 * won + drawn; }
    int goalDifference() const { return goalsFor - goalsAgainst; }
};

struct GroupResult {
    QString homeTeamID;
    QString awayTeamID;
    Score score{};
};

// A group's table from the results finished so far, ranked by points, goal difference and goals
// scored, then by the same three among the tied teams' own games. What is still tied keeps the real
// final order once the group is complete, and the draw order before (so the table never tells the
// future).
namespace GroupTable {

QList<GroupRow> ranked(const GroupFact &group, const QList<GroupResult> &results, bool complete);

} // namespace GroupTable
