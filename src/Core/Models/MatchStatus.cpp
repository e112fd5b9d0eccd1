#include "MatchStatus.h"

#include "Support/RawValueTable.h"

namespace {
constexpr RawValueTable<MatchStatus, 4> rawValues{{
    {MatchStatus::scheduled, "scheduled"},
    {MatchStatus::inPlay, "in_play"},
    {MatchStatus::halfTime, "half_time"},
    {MatchStatus::finished, "finished"},
}};
} // namespace

QString rawValue(MatchStatus status)
{
    return textForCase(rawValues, status);
}
