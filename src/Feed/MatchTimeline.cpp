#include "MatchTimeline.h"

#include <algorithm>

using std::chrono::minutes;
using std::chrono::seconds;

namespace {

struct PlayingPeriod {
    int firstMinute;
    int length;
};

constexpr PlayingPeriod firstHalf{0, 45};
constexpr PlayingPeriod secondHalf{45, 45};
constexpr PlayingPeriod extraTimeFirstHalf{90, 15};
constexpr PlayingPeriod extraTimeSecondHalf{105, 15};

PlayingPeriod periodOf(const GoalFact &goal)
{
    if (goal.minute <= 45)
        return firstHalf;
    if (goal.minute <= 90)
        return secondHalf;
    if (goal.minute <= 105)
        return extraTimeFirstHalf;
    return extraTimeSecondHalf;
}

// Added time varies from game to game the way real referees' boards do, and is never shorter than the
// latest goal scored in it.
int addedMinutes(const GameFact &game, PlayingPeriod period, int shortest, int spread)
{
    const int number = game.id.toInt();
    int added = shortest + (number * 7 + period.firstMinute) % spread;
    for (const GoalFact &goal : game.goals) {
        if (periodOf(goal).firstMinute == period.firstMinute)
            added = std::max(added, goal.added);
    }
    return added;
}

// Five rounds, or as many sudden-death rounds as the winner needed beyond them.
int shootoutRounds(const Score &penalties)
{
    return std::max({5, penalties[0], penalties[1]});
}

QString minuteText(int firstMinute, int length, seconds intoPeriod)
{
    const int minute = firstMinute + int(intoPeriod.count() / 60) + 1;
    const int lastRegular = firstMinute + length;
    if (minute <= lastRegular)
        return QString::number(minute);
    return QStringLiteral("%1+%2").arg(lastRegular).arg(minute - lastRegular);
}

} // namespace

MatchTimeline::MatchTimeline(const GameFact &game) : m_kickoff(game.kickoff)
{
    Instant cursor = m_kickoff;
    const auto play = [&](PlayingPeriod period, int added) {
        const Instant end = cursor + minutes(period.length + added);
        m_periods.append({cursor, end, period.firstMinute, period.length, {}});
        cursor = end;
    };
    const auto pause = [&](int length, const QString &clock) {
        const Instant end = cursor + minutes(length);
        m_periods.append({cursor, end, 0, 0, clock});
        cursor = end;
    };

    play(firstHalf, addedMinutes(game, firstHalf, 1, 4));
    pause(halfTimeMinutes, QStringLiteral("HT"));
    play(secondHalf, addedMinutes(game, secondHalf, 3, 6));
    if (game.extraTime) {
        pause(breakBeforeExtraTimeMinutes, QStringLiteral("BT"));
        play(extraTimeFirstHalf, addedMinutes(game, extraTimeFirstHalf, 0, 3));
        pause(extraTimeIntervalMinutes, QStringLiteral("BT"));
        play(extraTimeSecondHalf, addedMinutes(game, extraTimeSecondHalf, 1, 3));
    }
    if (game.penalties) {
        pause(breakBeforeShootoutMinutes + minutesPerShootoutRound * shootoutRounds(*game.penalties),
              QStringLiteral("PEN"));
    }
    m_end = cursor;

    m_goalInstants.reserve(game.goals.size());
    for (const GoalFact &goal : game.goals)
        m_goalInstants.append(instantOf(goal));
}

const MatchTimeline::Period *MatchTimeline::periodAt(Instant instant) const
{
    const auto found = std::find_if(m_periods.cbegin(), m_periods.cend(),
                                    [instant](const Period &period) { return instant < period.end; });
    return found == m_periods.cend() ? nullptr : &*found;
}

MatchMoment MatchTimeline::at(Instant instant) const
{
    if (instant < m_kickoff)
        return {MatchMoment::Phase::NotStarted, {}};
    const Period *period = periodAt(instant);
    if (!period)
        return {MatchMoment::Phase::Finished, {}};
    if (period->length == 0)
        return {MatchMoment::Phase::InPlay, period->breakClock};
    return {MatchMoment::Phase::InPlay,
            minuteText(period->firstMinute, period->length, instant - period->start)};
}

Instant MatchTimeline::instantOf(const GoalFact &goal) const
{
    const PlayingPeriod playing = periodOf(goal);
    const auto period = std::find_if(m_periods.cbegin(), m_periods.cend(), [&](const Period &candidate) {
        return candidate.length == playing.length && candidate.firstMinute == playing.firstMinute;
    });
    // The dataset only has extra-time goals in games that went to extra time; a stray one counts at
    // the final whistle rather than nowhere.
    if (period == m_periods.cend())
        return m_end;
    const int minuteIntoPeriod =
        goal.added > 0 ? playing.length + goal.added : goal.minute - playing.firstMinute;
    return period->start + minutes(minuteIntoPeriod - 1) + seconds(30);
}
