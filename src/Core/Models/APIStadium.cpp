#include "APIStadium.h"

#include "FeedDecoding.h"
#include "Support/TextParsing.h"

#include <QLocale>
#include <QStringList>

using FeedDecoding::text;

APIStadium APIStadium::fromJson(const QJsonObject &object)
{
    APIStadium stadium;
    stadium.id = FeedDecoding::identity(object);
    stadium.nameEn = text(object, QLatin1StringView("name_en"), stadium.nameEn);
    stadium.fifaName = text(object, QLatin1StringView("fifa_name"), stadium.fifaName);
    stadium.cityEn = text(object, QLatin1StringView("city_en"), stadium.cityEn);
    stadium.countryEn = text(object, QLatin1StringView("country_en"), stadium.countryEn);
    if (const auto seats = FeedDecoding::lossyString(object, QLatin1StringView("capacity")))
        stadium.capacity = TextParsing::parseInteger(*seats);
    stadium.region = text(object, QLatin1StringView("region"), stadium.region);
    return stadium;
}

QString APIStadium::capacityText() const
{
    if (!capacity)
        return {};
    QLocale english(QLocale::English, QLocale::UnitedStates);
    return english.toString(*capacity);
}

QString APIStadium::place() const
{
    QStringList parts{cityEn, countryEn};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}
