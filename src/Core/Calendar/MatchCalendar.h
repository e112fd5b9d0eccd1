#pragma once

#include "Models/Match.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>

// Matches as an iCalendar file (RFC 5545) for calendar programs: one event per match, in UTC. Each
// event's UID comes from the match id, so importing the file again updates the events rather than
// adding copies. A match without a known kick-off has no place in a calendar and is left out.
namespace MatchCalendar {

// stamp is when the file is made (DTSTAMP); the events themselves do not depend on it.
QByteArray write(const QList<Match> &matches, const QDateTime &stamp);

// The length of a match in the calendar: two halves, half-time and stoppage time.
inline constexpr int eventMinutes = 120;

} // namespace MatchCalendar
