#include "APIGroup.h"

#include "FeedDecoding.h"

APIGroup APIGroup::fromJson(const QJsonObject &object)
{
    APIGroup group;
    // The seed export keys the letter "group", the live service "name".
    group.group = FeedDecoding::lossyString(object, QLatin1StringView("group"))
                      .value_or(FeedDecoding::text(object, QLatin1StringView("name"), QString()));
    const QJsonValue teams = object.value(QLatin1StringView("teams"));
    if (teams.isArray())
        group.teams =
            FeedDecoding::recordsFrom<APIStandingTeam>(teams.toArray()).value_or(QList<APIStandingTeam>());
    return group;
}
