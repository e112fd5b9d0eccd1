#include "APIStadium.h"

#include "FeedDecoding.h"
#include "Support/TextParsing.h"

using FeedDecoding::text;

APIStadium APIStadium::fromJson(const QJsonObject &object)
{
    APIStadium stadium;
    stadium.id = FeedDecoding::identity(object);
    stadium.nameEn = text(object, QLatin1StringView("name_en"), stadium.nameEn);
    stadium.fifaName = text(object, QLatin1StringView("fifa_name"), stadium.fifaName);
    stadium.cityEn = text(object, QLatin1StringView("city_en"), stadium.cityEn);
    stadium.countryEn = text(object, QLatin1StringView("country_en"), stadium.countryEn);
    if (const auto capacityText = FeedDecoding::lossyString(object, QLatin1StringView("capacity")))
        stadium.capacity = TextParsing::parseInteger(*capacityText);
    stadium.region = text(object, QLatin1StringView("region"), stadium.region);
    return stadium;
}
