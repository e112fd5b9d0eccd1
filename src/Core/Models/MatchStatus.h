#pragma once

#include <QString>

#include <optional>

enum class MatchStatus { scheduled, inPlay, halfTime, finished };

// The status as it is stored and shown to QML: "scheduled", "in_play", "half_time", "finished".
QString rawValue(MatchStatus status);

constexpr bool isLive(MatchStatus status)
{
    return status == MatchStatus::inPlay || status == MatchStatus::halfTime;
}
