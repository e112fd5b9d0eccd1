#pragma once

#include "StandingRow.h"

#include <QList>
#include <QMetaType>
#include <QString>

// One group's table, rows in position order.
struct GroupStanding {
    Q_GADGET
    Q_PROPERTY(QString group MEMBER group)
    Q_PROPERTY(QList<StandingRow> standings MEMBER standings)

public:
    QString group;
    QList<StandingRow> standings;

    friend bool operator==(const GroupStanding &, const GroupStanding &) = default;
};
Q_DECLARE_METATYPE(GroupStanding)
