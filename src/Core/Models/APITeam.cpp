#include "APITeam.h"

#include "FeedDecoding.h"
#include "Support/TextMemo.h"
#include "Support/WCFormatters.h"

using FeedDecoding::text;

APITeam APITeam::fromJson(const QJsonObject &object)
{
    APITeam team;
    team.id = FeedDecoding::identity(object);
    team.nameEn = text(object, QLatin1StringView("name_en"), team.nameEn);
    team.flag = text(object, QLatin1StringView("flag"), team.flag);
    team.fifaCode = text(object, QLatin1StringView("fifa_code"), team.fifaCode);
    team.iso2 = text(object, QLatin1StringView("iso2"), team.iso2);
    team.groups = text(object, QLatin1StringView("groups"), team.groups);
    return team;
}

QString APITeam::flagEmoji() const
{
    static TextMemo<QString> emojiByCode;
    return emojiByCode.get(iso2, ::flagEmoji);
}
