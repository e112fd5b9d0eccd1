#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QTimeZone>

// The line under the panel's title: "Loading…" while the first data is on its way, "Updated" and the
// time of the last update (hours and minutes in the locale's short format, in zone) once there is
// data, and "World Cup 2026" when there is none.
QString panelStatusLine(bool isLoading, const QDateTime &lastUpdated, const QLocale &locale,
                        const QTimeZone &zone);
