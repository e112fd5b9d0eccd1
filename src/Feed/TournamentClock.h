#pragma once

#include "Instant.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QString>

#include <optional>

// Tournament time T. Frozen at one instant, or running from an instant at a multiple of wall-clock
// speed, counted from the moment the clock is made.
class TournamentClock {
public:
    static constexpr double maximumSpeed = 1'000'000.0;

    static TournamentClock frozen(const QDateTime &at);
    static TournamentClock running(const QDateTime &from, double speed);

    // Reads "2026-06-27T20:50:00Z" or "2026-06-27T22:50:00+02:00"; a time without a zone is refused,
    // because whose local time it meant cannot be known.
    static std::optional<QDateTime> parseInstant(const QString &text);

    QDateTime now() const;
    Instant nowInstant() const { return instantFromDateTime(now()); }
    bool isRunning() const { return m_speed > 0; }
    double speed() const { return m_speed; }
    // {"now": ..., "mode": "frozen" | "running", "speed": ..., "from": ...} for GET /_clock.
    QJsonObject describe() const;

private:
    TournamentClock(const QDateTime &origin, double speed);

    QDateTime m_origin;
    double m_speed = 0; // 0 when frozen
    QElapsedTimer m_wall;
};
