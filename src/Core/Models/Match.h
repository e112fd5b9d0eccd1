#pragma once

#include "MatchStatus.h"

#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>

#include <optional>

class WCFormatters;

// One match as the program knows it, made once from the feed by normalisation. An empty QUrl, an
// invalid QDateTime and an empty optional each mean "absent".
struct Match {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(int matchNumber MEMBER matchNumber)
    Q_PROPERTY(QString round MEMBER round)
    Q_PROPERTY(QString groupName MEMBER groupName)
    Q_PROPERTY(QString homeTeamID MEMBER homeTeamID)
    Q_PROPERTY(QString awayTeamID MEMBER awayTeamID)
    Q_PROPERTY(QString homeTeam MEMBER homeTeam)
    Q_PROPERTY(QString awayTeam MEMBER awayTeam)
    Q_PROPERTY(QString homeCode MEMBER homeCode)
    Q_PROPERTY(QString awayCode MEMBER awayCode)
    Q_PROPERTY(QString homeFlagEmoji MEMBER homeFlagEmoji)
    Q_PROPERTY(QString awayFlagEmoji MEMBER awayFlagEmoji)
    Q_PROPERTY(QUrl homeFlagURL MEMBER homeFlagURL)
    Q_PROPERTY(QUrl awayFlagURL MEMBER awayFlagURL)
    Q_PROPERTY(QString stadiumID MEMBER stadiumID)
    Q_PROPERTY(QString stadium MEMBER stadium)
    Q_PROPERTY(QString city MEMBER city)
    Q_PROPERTY(QDateTime kickoffDate MEMBER kickoffDate)
    Q_PROPERTY(QString kickoffLabel MEMBER kickoffLabel)
    Q_PROPERTY(QString status READ statusText)
    Q_PROPERTY(bool isLive READ live)
    Q_PROPERTY(QVariant homeScore READ homeScoreValue)
    Q_PROPERTY(QVariant awayScore READ awayScoreValue)
    Q_PROPERTY(QVariant liveClock READ liveClockValue)
    Q_PROPERTY(QVariant minute READ minuteValue)
    Q_PROPERTY(QStringList homeScorers MEMBER homeScorers)
    Q_PROPERTY(QStringList awayScorers MEMBER awayScorers)
    Q_PROPERTY(QString homeSlotLabel MEMBER homeSlotLabel)
    Q_PROPERTY(QString awaySlotLabel MEMBER awaySlotLabel)
    Q_PROPERTY(bool wentToExtraTime MEMBER wentToExtraTime)
    Q_PROPERTY(bool decidedOnPenalties MEMBER decidedOnPenalties)
    Q_PROPERTY(QString winnerTeamID READ winnerTeamIDText)
    Q_PROPERTY(bool isKnockout READ isKnockout)
    Q_PROPERTY(QString venueLine READ venueLine)
    Q_PROPERTY(QString scorelineDisplay READ scorelineDisplay)
    Q_PROPERTY(QString displayHomeScore READ displayHomeScore)
    Q_PROPERTY(QString displayAwayScore READ displayAwayScore)
    Q_PROPERTY(QString compactStatusLabel READ compactStatusLabel)
    Q_PROPERTY(QString kickoffDetailLabel READ kickoffDetailLabel)
    Q_PROPERTY(QString spoilerFreeStatusLabel READ spoilerFreeStatusLabel)
    Q_PROPERTY(QString spoilerFreeDetailLabel READ spoilerFreeDetailLabel)
    Q_PROPERTY(QString roundLabel READ roundLabel)
    Q_PROPERTY(QString kickoffFullLabel READ kickoffFullLabel)
    Q_PROPERTY(QString kickoffDatedLabel READ kickoffDatedLabel)
    Q_PROPERTY(QString trayMenuBarTitle READ trayMenuBarTitle)
    Q_PROPERTY(QString spoilerFreeTitle READ spoilerFreeTitle)
    Q_PROPERTY(QString fixtureName READ fixtureName)

public:
    QString id;
    int matchNumber = 0;
    QString round;
    QString groupName;
    QString homeTeamID;
    QString awayTeamID;
    QString homeTeam;
    QString awayTeam;
    QString homeCode;
    QString awayCode;
    QString homeFlagEmoji;
    QString awayFlagEmoji;
    QUrl homeFlagURL;
    QUrl awayFlagURL;
    QString stadiumID;
    QString stadium;
    QString city;
    QDateTime kickoffDate;
    QString kickoffLabel;
    MatchStatus status = MatchStatus::scheduled;
    std::optional<int> homeScore;
    std::optional<int> awayScore;
    std::optional<QString> liveClock;
    std::optional<int> minute;
    QStringList homeScorers;
    QStringList awayScorers;
    // A knockout side's bracket slot as the feed labels it ("Winner Group E", "Winner Match 73"), kept
    // after the side is known; empty for group games.
    QString homeSlotLabel;
    QString awaySlotLabel;
    // Knockout outcome, derived from all matches once they are normalised (KnockoutOutcomes).
    bool wentToExtraTime = false;
    bool decidedOnPenalties = false;
    std::optional<QString> winnerTeamID;

    bool isKnockout() const { return !round.isEmpty() && round != QLatin1StringView("GROUP"); }
    // The side's name as the screens show a result: "Paraguay win on penalties".
    QString winnerName() const;
    QString venueLine() const;
    QString scorelineDisplay() const;
    QString displayHomeScore() const;
    QString displayAwayScore() const;
    QString compactStatusLabel() const;
    QString kickoffDetailLabel() const;
    // The same without extra time, penalties or the winner, which tell a result: "FT", "Full-time".
    QString spoilerFreeStatusLabel() const;
    QString spoilerFreeDetailLabel() const;
    QString roundLabel() const;
    QString kickoffFullLabel() const;
    // The kick-off with its day, for cards shown outside a heading of their own day.
    QString kickoffDatedLabel(const WCFormatters &formatters) const;
    QString kickoffDatedLabel() const;
    QString trayMenuBarTitle() const;
    // "🇵🇦 v ENG · 31'": which match and how far it is, never its score.
    QString spoilerFreeTitle() const;
    // "Panama v England".
    QString fixtureName() const;

    QString statusText() const { return rawValue(status); }
    bool live() const { return isLive(status); }
    QVariant homeScoreValue() const { return homeScore ? QVariant(*homeScore) : QVariant(); }
    QVariant awayScoreValue() const { return awayScore ? QVariant(*awayScore) : QVariant(); }
    QVariant liveClockValue() const { return liveClock ? QVariant(*liveClock) : QVariant(); }
    QVariant minuteValue() const { return minute ? QVariant(*minute) : QVariant(); }
    QString winnerTeamIDText() const { return winnerTeamID.value_or(QString()); }

    friend bool operator==(const Match &, const Match &) = default;
};
Q_DECLARE_METATYPE(Match)
