#pragma once

#include "Instant.h"
#include "MatchTimeline.h"
#include "Tournament.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>

// How a game in play reports its time: the minute and break forms ("67", "45+2", "HT"), or the coarse
// "live" that the production service sent.
enum class ElapsedStyle { Minute, Live };

// The tournament as the data service shows it at any instant T: games not started, in play or
// finished, knockout sides named once the game or group that feeds them has ended, and group tables
// from the games finished by T. Computing a moment is pure; one replay serves any number of instants.
class TournamentReplay {
public:
    explicit TournamentReplay(const Tournament &tournament);

    const Tournament &tournament() const { return m_tournament; }
    Instant firstKickoff() const { return m_firstKickoff; }
    // The last whistle of the final: every record is settled from here on.
    Instant end() const { return m_end; }

    QJsonArray games(Instant instant, ElapsedStyle style = ElapsedStyle::Minute) const;
    QJsonArray groups(Instant instant) const;

    QJsonObject game(qsizetype index, Instant instant, ElapsedStyle style) const;
    const MatchTimeline &timeline(qsizetype index) const { return m_timelines.at(index); }

private:
    struct SideTiming {
        Instant home;
        Instant away;
    };

    Instant settledAt(const Feeder &feeder) const;
    void addSide(QJsonObject &record, const SideFact &side, Instant revealedAt, Instant instant,
                 bool home) const;

    const Tournament &m_tournament;
    QList<MatchTimeline> m_timelines;
    QList<SideTiming> m_sidesKnownAt;
    Instant m_firstKickoff;
    Instant m_end;
};
