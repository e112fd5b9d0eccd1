#pragma once

#include "GroupStanding.h"
#include "Match.h"
#include "TeamSummary.h"

#include <QList>
#include <QMetaType>
#include <QString>

#include <optional>

// Everything the team screen shows about one team.
struct TeamDetailState {
    QString id;
    TeamSummary summary;
    std::optional<StandingRow> standing;
    std::optional<QString> group;
    std::optional<GroupStanding> groupStanding;
    QList<Match> matches;
    std::optional<Match> nextMatch;
    std::optional<Match> latestResult;

    friend bool operator==(const TeamDetailState &, const TeamDetailState &) = default;
};
Q_DECLARE_METATYPE(TeamDetailState)
