#include "MatchStatus.h"

#include <array>
#include <utility>

namespace {
const std::array<std::pair<MatchStatus, const char *>, 4> rawValues{{
    {MatchStatus::scheduled, "scheduled"},
    {MatchStatus::inPlay, "in_play"},
    {MatchStatus::halfTime, "half_time"},
    {MatchStatus::finished, "finished"},
}};
} // namespace

QString rawValue(MatchStatus status)
{
    for (const auto &[candidate, text] : rawValues) {
        if (candidate == status)
            return QString::fromLatin1(text);
    }
    Q_UNREACHABLE();
    return {};
}

std::optional<MatchStatus> matchStatusFromRawValue(const QString &text)
{
    for (const auto &[status, candidate] : rawValues) {
        if (text == QLatin1StringView(candidate))
            return status;
    }
    return std::nullopt;
}
