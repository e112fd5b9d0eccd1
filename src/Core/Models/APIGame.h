#pragma once

#include <QJsonObject>
#include <QMetaType>
#include <QString>

#include <optional>

// One match as the data service sends it. Every scalar is kept as text; defaults make a bare record
// read as an unscored, not-started group match.
struct APIGame {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString homeTeamID MEMBER homeTeamID)
    Q_PROPERTY(QString awayTeamID MEMBER awayTeamID)
    Q_PROPERTY(QString stadiumID MEMBER stadiumID)
    Q_PROPERTY(QString localDate MEMBER localDate)

public:
    QString id;
    QString homeTeamID = QStringLiteral("0");
    QString awayTeamID = QStringLiteral("0");
    QString homeScore = QStringLiteral("0");
    QString awayScore = QStringLiteral("0");
    QString homeScorers = QStringLiteral("null");
    QString awayScorers = QStringLiteral("null");
    QString group;
    QString matchday;
    QString localDate;
    QString stadiumID = QStringLiteral("0");
    QString finished = QStringLiteral("FALSE");
    QString timeElapsed = QStringLiteral("notstarted");
    QString type = QStringLiteral("group");
    std::optional<QString> homeTeamNameEn;
    std::optional<QString> awayTeamNameEn;
    std::optional<QString> homeTeamLabel;
    std::optional<QString> awayTeamLabel;

    // A record without "id" gets a new random identity on every decode.
    static APIGame fromJson(const QJsonObject &object);

    friend bool operator==(const APIGame &, const APIGame &) = default;
};
Q_DECLARE_METATYPE(APIGame)
