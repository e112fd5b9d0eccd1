#pragma once

#include "Match.h"

#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <optional>

struct KnockoutBracket;
class WCFormatters;

// What the fixtures screen can say about a day without matches: the countdown to the opening match
// before the tournament, the nearest match days around a rest day, the champion after the final.
struct DayFacts {
    Q_GADGET
    Q_PROPERTY(QString kind MEMBER kind)
    Q_PROPERTY(QString countdown MEMBER countdown)
    Q_PROPERTY(QString previousDateKey MEMBER previousDateKey)
    Q_PROPERTY(QString nextDateKey MEMBER nextDateKey)
    Q_PROPERTY(QVariant openingMatch READ openingMatchValue)
    Q_PROPERTY(QVariant finalMatch READ finalMatchValue)
    Q_PROPERTY(QString championTeamID MEMBER championTeamID)
    Q_PROPERTY(QString championName MEMBER championName)

public:
    // "matchDay", "noMatches" (nothing known yet), "beforeTournament", "restDay", "afterTournament".
    QString kind;
    QString countdown;       // "Opening match in 12 days"; empty once it has kicked off
    QString previousDateKey; // the nearest match day before; empty when none
    QString nextDateKey;     // the nearest match day after (the opening day before the tournament)
    std::optional<Match> openingMatch;
    std::optional<Match> finalMatch;
    QString championTeamID; // empty until the final has a winner the program can know
    QString championName;

    // The facts of one day key, from all matches and their bracket, at the instant now.
    static DayFacts of(const QString &dateKey, const QList<Match> &matches, const KnockoutBracket &bracket,
                       const QDateTime &now, const WCFormatters &formatters);
    // "in 3 days", "in 5 h 20 min", "in 8 min"; empty when the instant is not ahead.
    static QString countdownText(const QDateTime &now, const QDateTime &until);

    QVariant openingMatchValue() const
    {
        return openingMatch ? QVariant::fromValue(*openingMatch) : QVariant();
    }
    QVariant finalMatchValue() const { return finalMatch ? QVariant::fromValue(*finalMatch) : QVariant(); }

    friend bool operator==(const DayFacts &, const DayFacts &) = default;
};
Q_DECLARE_METATYPE(DayFacts)
