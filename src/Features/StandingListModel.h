#pragma once

#include "Lists/RecordListModel.h"
#include "Models/StandingRow.h"

#include <QtQml/qqmlregistration.h>

// A page's own group table, updated in place as the tables change.
class StandingListModel : public RecordList<StandingRow> {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<StandingRow> standings READ records WRITE update NOTIFY rowsChanged)

public:
    explicit StandingListModel(QObject *parent = nullptr)
        : RecordList<StandingRow>("standing", "teamID", parent)
    {}
};
