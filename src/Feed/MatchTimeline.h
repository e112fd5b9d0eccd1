#pragma once

#include "Instant.h"
#include "Tournament.h"

#include <QList>
#include <QString>

// Where a game stands at an instant.
struct MatchMoment {
    enum class Phase { NotStarted, InPlay, Finished };
    Phase phase = Phase::NotStarted;
    // While in play: the minute as feeds of this family write it ("9", "45+2", "HT", "105+1"), "BT" in
    // the breaks before and within extra time, "PEN" while the shoot-out is on.
    QString clock;
};

// The real-time schedule of one game from its kick-off: two halves with added time, a 15-minute
// half-time break, and where played a break, two halves of extra time and a shoot-out. Added time is
// chosen per game, long enough for every goal scored in it.
class MatchTimeline {
public:
    static constexpr int halfTimeMinutes = 15;
    static constexpr int breakBeforeExtraTimeMinutes = 5;
    static constexpr int extraTimeIntervalMinutes = 2;
    static constexpr int breakBeforeShootoutMinutes = 4;
    static constexpr int minutesPerShootoutRound = 2;

    explicit MatchTimeline(const GameFact &game);

    MatchMoment at(Instant instant) const;
    Instant kickoff() const { return m_kickoff; }
    // The final whistle, or the last kick of the shoot-out.
    Instant end() const { return m_end; }
    // The instant of the game's goal with this index; each falls halfway through its minute.
    Instant goalInstant(qsizetype index) const { return m_goalInstants.at(index); }

private:
    struct Period {
        Instant start;
        Instant end;
        int firstMinute = 0; // 0, 45, 90 or 105: minutes already played before it
        int length = 0;      // its regular minutes: 45 or 15; 0 marks a break
        QString breakClock;
    };

    const Period *periodAt(Instant instant) const;
    Instant instantOf(const GoalFact &goal) const;

    Instant m_kickoff;
    Instant m_end;
    QList<Period> m_periods;
    QList<Instant> m_goalInstants;
};
