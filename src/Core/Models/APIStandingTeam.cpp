#include "APIStandingTeam.h"

#include "FeedDecoding.h"

using FeedDecoding::text;

APIStandingTeam APIStandingTeam::fromJson(const QJsonObject &object)
{
    APIStandingTeam row;
    row.teamID = text(object, QLatin1StringView("team_id"), row.teamID);
    row.played = text(object, QLatin1StringView("mp"), row.played);
    row.won = text(object, QLatin1StringView("w"), row.won);
    row.lost = text(object, QLatin1StringView("l"), row.lost);
    row.drawn = text(object, QLatin1StringView("d"), row.drawn);
    row.points = text(object, QLatin1StringView("pts"), row.points);
    row.goalsFor = text(object, QLatin1StringView("gf"), row.goalsFor);
    row.goalsAgainst = text(object, QLatin1StringView("ga"), row.goalsAgainst);
    row.goalDifference = text(object, QLatin1StringView("gd"), row.goalDifference);
    return row;
}
