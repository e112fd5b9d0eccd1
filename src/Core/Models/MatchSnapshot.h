#pragma once

#include "MatchStatus.h"

#include <optional>

// What alerts remember of a match between refreshes, to notice kick-offs, goals and full time.
struct MatchSnapshot {
    MatchStatus status = MatchStatus::scheduled;
    std::optional<int> home;
    std::optional<int> away;
};
