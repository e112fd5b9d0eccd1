#pragma once

#include "APIStandingTeam.h"

#include <QJsonObject>
#include <QList>
#include <QString>

// One group with its table. A table that cannot be read is emptied; the group itself still decodes.
struct APIGroup {
    QString group;
    QList<APIStandingTeam> teams;

    static APIGroup fromJson(const QJsonObject &object);

    friend bool operator==(const APIGroup &, const APIGroup &) = default;
};
