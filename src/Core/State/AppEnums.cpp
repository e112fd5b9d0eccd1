#include "AppEnums.h"

#include "Support/RawValueTable.h"

namespace {

constexpr RawValueTable<Section, 5> sectionNames{{
    {Section::fixtures, "fixtures"},
    {Section::standings, "standings"},
    {Section::teams, "teams"},
    {Section::stadiums, "stadiums"},
    {Section::favorites, "favorites"},
}};

constexpr RawValueTable<TrayDisplayMode, 3> modeNames{{
    {TrayDisplayMode::automatic, "auto"},
    {TrayDisplayMode::pinned, "pinned"},
    {TrayDisplayMode::rotate, "rotate"},
}};

constexpr RawValueTable<TrayDisplayMode, 3> modeTitles{{
    {TrayDisplayMode::automatic, "Auto"},
    {TrayDisplayMode::pinned, "Pinned"},
    {TrayDisplayMode::rotate, "Rotate"},
}};

constexpr RawValueTable<TrayIconScore, 3> iconScoreNames{{
    {TrayIconScore::automatic, "auto"},
    {TrayIconScore::always, "always"},
    {TrayIconScore::never, "never"},
}};

constexpr RawValueTable<RefreshInterval, 4> intervalLabels{{
    {RefreshInterval::fifteen, "15s"},
    {RefreshInterval::thirty, "30s"},
    {RefreshInterval::sixty, "60s"},
    {RefreshInterval::fiveMinutes, "5m"},
}};

} // namespace

QString rawValue(Section section)
{
    return textForCase(sectionNames, section);
}
std::optional<Section> sectionFromRawValue(const QString &text)
{
    return caseForText(sectionNames, text);
}
QList<Section> allSections()
{
    return allCases(sectionNames);
}

QString rawValue(TrayDisplayMode mode)
{
    return textForCase(modeNames, mode);
}
std::optional<TrayDisplayMode> trayDisplayModeFromRawValue(const QString &text)
{
    return caseForText(modeNames, text);
}
QString title(TrayDisplayMode mode)
{
    return textForCase(modeTitles, mode);
}
QList<TrayDisplayMode> allTrayDisplayModes()
{
    return allCases(modeNames);
}

QString rawValue(TrayIconScore choice)
{
    return textForCase(iconScoreNames, choice);
}
std::optional<TrayIconScore> trayIconScoreFromRawValue(const QString &text)
{
    return caseForText(iconScoreNames, text);
}

std::optional<RefreshInterval> refreshIntervalFromSeconds(qint64 seconds)
{
    for (const RefreshInterval interval : allRefreshIntervals()) {
        if (::seconds(interval) == seconds)
            return interval;
    }
    return std::nullopt;
}
QString label(RefreshInterval interval)
{
    return textForCase(intervalLabels, interval);
}
QList<RefreshInterval> allRefreshIntervals()
{
    return allCases(intervalLabels);
}
