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
    Q_PROPERTY(QString venueLine READ venueLine)
    Q_PROPERTY(QString scorelineDisplay READ scorelineDisplay)
    Q_PROPERTY(QString displayHomeScore READ displayHomeScore)
    Q_PROPERTY(QString displayAwayScore READ displayAwayScore)
    Q_PROPERTY(QString compactStatusLabel READ compactStatusLabel)
    Q_PROPERTY(QString kickoffDetailLabel READ kickoffDetailLabel)
    Q_PROPERTY(QString roundLabel READ roundLabel)
    Q_PROPERTY(QString kickoffFullLabel READ kickoffFullLabel)
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

    QString venueLine() const;
    QString scorelineDisplay() const;
    QString displayHomeScore() const;
    QString displayAwayScore() const;
    QString compactStatusLabel() const;
    QString kickoffDetailLabel() const;
    QString roundLabel() const;
    QString kickoffFullLabel() const;
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

    friend bool operator==(const Match &, const Match &) = default;
};
Q_DECLARE_METATYPE(Match)
