#pragma once

#include "Lists/RecordListModel.h"
#include "Models/StandingRow.h"

#include <QtQml/qqmlregistration.h>

#include <algorithm>

// A page's own group table, updated in place as the tables change.
class StandingListModel : public RecordListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<StandingRow> standings READ standings WRITE setStandings NOTIFY standingsChanged)
    // While scores are hidden the places would give results away, so the teams are listed by name.
    Q_PROPERTY(bool nameOrder READ nameOrder WRITE setNameOrder NOTIFY nameOrderChanged)

public:
    explicit StandingListModel(QObject *parent = nullptr)
        : RecordListModel(StandingRow::staticMetaObject, "standing", "teamID", parent)
    {}

    QList<StandingRow> standings() const { return m_standings; }
    void setStandings(const QList<StandingRow> &standings)
    {
        m_standings = standings;
        publish();
        emit standingsChanged();
    }
    bool nameOrder() const { return m_nameOrder; }
    void setNameOrder(bool nameOrder)
    {
        if (nameOrder == m_nameOrder)
            return;
        m_nameOrder = nameOrder;
        publish();
        emit nameOrderChanged();
    }

signals:
    void standingsChanged();
    void nameOrderChanged();

private:
    void publish()
    {
        QList<StandingRow> shown = m_standings;
        if (m_nameOrder) {
            std::stable_sort(shown.begin(), shown.end(), [](const StandingRow &a, const StandingRow &b) {
                return QString::localeAwareCompare(a.team, b.team) < 0;
            });
        }
        updateRows(recordVariants(shown));
    }

    QList<StandingRow> m_standings;
    bool m_nameOrder = false;
};
