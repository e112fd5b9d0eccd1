#pragma once

#include "Instant.h"

#include <QByteArray>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

enum class Side { Home, Away };

using Score = std::array<int, 2>; // home, away

struct GoalFact {
    Side side = Side::Home;
    int minute = 0; // 1..120: the period's minute, 45 or 90 or 105 or 120 when in added time
    int added = 0;  // the minute of added time, 0 outside it
    QString scorer;
    bool penalty = false;
    bool ownGoal = false;
};

// What settles a knockout side: the game it is the winner or loser of, the group it comes out of, or
// the whole group stage (the third-placed sides). Group games need nothing.
struct Feeder {
    enum class Kind { None, Match, Group, GroupStage };
    Kind kind = Kind::None;
    QString key; // the game id or the group letter
};

struct SideFact {
    QString teamID;
    std::optional<QString> label; // bracket slot such as "Winner Match 73"; knockout games only
    Feeder knownAfter;
};

struct GameFact {
    QJsonObject fixed; // the keys sent unchanged whatever the time: _id, id, group, matchday, dates, ...
    QString id;
    QString group;
    bool isGroupGame = true;
    Instant kickoff;
    SideFact home;
    SideFact away;
    Score fullTime{};
    std::optional<Score> extraTime;
    std::optional<Score> penalties;
    QList<GoalFact> goals; // in match order

    const SideFact &side(Side which) const { return which == Side::Home ? home : away; }
};

struct GroupFact {
    QString recordID;
    QString name;
    QStringList drawOrder;  // the order before anything is settled
    QStringList finalOrder; // the real final order, for ties nothing computable breaks
};

struct TeamNames {
    QString english;
    QString persian;
};

// The bundled record of the whole 2026 tournament: the data service's own teams, stadiums, groups and
// game records, and what happened in every game.
class Tournament {
public:
    // Reads a dataset made by data/convert.py; the error names the first thing that is wrong.
    static std::optional<Tournament> fromJson(const QByteArray &json, QString *error);
    // The dataset compiled into the program.
    static const Tournament &bundled();

    QJsonArray teams;
    QJsonArray stadiums;
    QList<GroupFact> groups; // in the service's order
    QList<GameFact> games;   // by id
    QHash<QString, TeamNames> teamNames;
};
