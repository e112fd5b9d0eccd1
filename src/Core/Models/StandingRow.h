#pragma once

#include <QMetaType>
#include <QString>
#include <QUrl>

// One team's line in a group table, ranked by normalisation.
struct StandingRow {
    Q_GADGET
    Q_PROPERTY(QString teamID MEMBER teamID)
    Q_PROPERTY(int position MEMBER position)
    Q_PROPERTY(QString team MEMBER team)
    Q_PROPERTY(QString code MEMBER code)
    Q_PROPERTY(QUrl flagURL MEMBER flagURL)
    Q_PROPERTY(QString flagEmoji MEMBER flagEmoji)
    Q_PROPERTY(int played MEMBER played)
    Q_PROPERTY(int won MEMBER won)
    Q_PROPERTY(int drawn MEMBER drawn)
    Q_PROPERTY(int lost MEMBER lost)
    Q_PROPERTY(int goalsFor MEMBER goalsFor)
    Q_PROPERTY(int goalsAgainst MEMBER goalsAgainst)
    Q_PROPERTY(int goalDifference MEMBER goalDifference)
    Q_PROPERTY(int points MEMBER points)

public:
    QString teamID;
    int position = 0;
    QString team;
    QString code;
    QUrl flagURL;
    QString flagEmoji;
    int played = 0;
    int won = 0;
    int drawn = 0;
    int lost = 0;
    int goalsFor = 0;
    int goalsAgainst = 0;
    int goalDifference = 0;
    int points = 0;

    friend bool operator==(const StandingRow &, const StandingRow &) = default;
};
Q_DECLARE_METATYPE(StandingRow)
