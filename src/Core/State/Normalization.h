#pragma once

#include "Models/APIGame.h"
#include "Models/APIGroup.h"
#include "Models/APIStadium.h"
#include "Models/APITeam.h"
#include "Models/GroupStanding.h"
#include "Models/Match.h"
#include "Support/WCFormatters.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QTimeZone>

#include <optional>

using TeamTable = QHash<QString, APITeam>;
using StadiumTable = QHash<QString, APIStadium>;

// Turns feed records into the program's own records. Pure: the result depends only on the record, the
// lookup tables handed in (which the app model owns) and the formatters' time zone.
namespace Normalization {

Match normalizeMatch(const APIGame &game, const TeamTable &teamsByID, const StadiumTable &stadiumsByID,
                     const WCFormatters &formatters = WCFormatters::shared());
GroupStanding normalizeStanding(const APIGroup &group, const TeamTable &teamsByID);

// The venue's zone: fixed for the sixteen 2026 venues, guessed from city and country otherwise.
std::optional<QTimeZone> timeZone(const APIStadium &venue);
std::optional<QTimeZone> fallbackTimeZone(const QString &city, const QString &country);

// The team's flag image, when its text is a URL.
QUrl flagURL(const APITeam &team);

QString resolvedTeamName(const std::optional<QString> &explicitName, const APITeam *team,
                         const std::optional<QString> &placeholder);
QString code(const APITeam *team, const QString &fallbackName);

std::optional<int> parsedScore(const QString &text, MatchStatus status);
std::optional<QString> parseLiveClock(const QString &text, MatchStatus status);
std::optional<int> parseMinute(const QString &text, MatchStatus status);
QStringList scorerList(const QString &text);

} // namespace Normalization
