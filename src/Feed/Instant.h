#pragma once

#include <QDateTime>

#include <chrono>

// Tournament time in whole seconds. Every kick-off, goal and whistle of the replay falls on a whole
// second, so the records at T depend only on T rounded down to the second.
using Instant = std::chrono::sys_seconds;

inline Instant instantFromDateTime(const QDateTime &dateTime)
{
    return Instant(std::chrono::seconds(dateTime.toSecsSinceEpoch()));
}

inline QDateTime dateTimeFromInstant(Instant instant)
{
    return QDateTime::fromSecsSinceEpoch(instant.time_since_epoch().count(), Qt::UTC);
}
