#pragma once

#include <QList>
#include <QString>

#include <optional>

// The panel section on show.
enum class Section { fixtures, standings, teams, stadiums, favorites };

// How the tray label picks its match among the live ones.
enum class TrayDisplayMode { automatic, pinned, rotate };

// Whether the live score is drawn into the tray icon: automatic does so where the tray shows no text
// beside the icon.
enum class TrayIconScore { automatic, always, never };

// The polling period; the raw value is the period in whole seconds.
enum class RefreshInterval { fifteen = 15, thirty = 30, sixty = 60, fiveMinutes = 300 };

QString rawValue(Section section);
std::optional<Section> sectionFromRawValue(const QString &text);
QList<Section> allSections();

QString rawValue(TrayDisplayMode mode);
std::optional<TrayDisplayMode> trayDisplayModeFromRawValue(const QString &text);
QString title(TrayDisplayMode mode);
QList<TrayDisplayMode> allTrayDisplayModes();

QString rawValue(TrayIconScore choice);
std::optional<TrayIconScore> trayIconScoreFromRawValue(const QString &text);

constexpr int seconds(RefreshInterval interval)
{
    return int(interval);
}
std::optional<RefreshInterval> refreshIntervalFromSeconds(qint64 seconds);
QString label(RefreshInterval interval);
QList<RefreshInterval> allRefreshIntervals();
