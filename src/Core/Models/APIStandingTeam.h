#pragma once

#include <QJsonObject>
#include <QString>

// One row of a group table as the data service sends it, every counter as text.
struct APIStandingTeam {
    QString teamID = QStringLiteral("0");
    QString played = QStringLiteral("0");
    QString won = QStringLiteral("0");
    QString lost = QStringLiteral("0");
    QString drawn = QStringLiteral("0");
    QString points = QStringLiteral("0");
    QString goalsFor = QStringLiteral("0");
    QString goalsAgainst = QStringLiteral("0");
    QString goalDifference = QStringLiteral("0");

    static APIStandingTeam fromJson(const QJsonObject &object);

    friend bool operator==(const APIStandingTeam &, const APIStandingTeam &) = default;
};
