#pragma once

#include "Models/APIStadium.h"
#include "Models/GroupStanding.h"
#include "Models/Match.h"
#include "Models/TeamSearchResult.h"
#include "Models/TeamSummary.h"
#include "RecordListModel.h"

#include <QObject>

// The lists the panel's screens show, fed by AppModel wherever it rebuilds the data behind them.
class ScreenLists : public QObject {
    Q_OBJECT
    Q_PROPERTY(RecordListModel *fixtures READ fixturesModel CONSTANT)
    Q_PROPERTY(RecordListModel *liveMatches READ liveMatchesModel CONSTANT)
    Q_PROPERTY(RecordListModel *favoriteTeams READ favoriteTeamsModel CONSTANT)
    Q_PROPERTY(RecordListModel *favoriteLive READ favoriteLiveModel CONSTANT)
    Q_PROPERTY(RecordListModel *favoriteComing READ favoriteComingModel CONSTANT)
    Q_PROPERTY(RecordListModel *favoriteResults READ favoriteResultsModel CONSTANT)
    Q_PROPERTY(RecordListModel *groupTables READ groupTablesModel CONSTANT)
    Q_PROPERTY(RecordListModel *teams READ teamsModel CONSTANT)
    Q_PROPERTY(RecordListModel *stadiums READ stadiumsModel CONSTANT)
    // The date strip's days, as date keys around today.
    Q_PROPERTY(QStringList days READ days NOTIFY daysChanged)
    // The matches yet to finish that kick off together with a followed team's match.
    Q_PROPERTY(QStringList concurrentMatchIDs READ concurrentMatchIDs NOTIFY concurrentMatchIDsChanged)

public:
    explicit ScreenLists(QObject *parent = nullptr) : QObject(parent) {}

    // The day's (or the filtered team's) matches in the fixtures order.
    RecordList<Match> fixtures{"match", "id", this};
    // The running matches in tray order.
    RecordList<Match> liveMatches{"match", "id", this};
    RecordList<TeamSummary> favoriteTeams{"team", "id", this};
    // The followed teams' matches, split as the favourites screen shows them.
    RecordList<Match> favoriteLive{"match", "id", this};
    RecordList<Match> favoriteComing{"match", "id", this};
    RecordList<Match> favoriteResults{"match", "id", this};
    // The selected group's table.
    // Every group's table, the followed teams' groups first.
    RecordList<GroupStanding> groupTables{"groupStanding", "group", this};
    // The teams screen's rows: every team by name, or the search results while something is typed.
    RecordList<TeamSearchResult> teams{"team", "id", this};
    RecordList<APIStadium> stadiums{"stadium", "id", this};

    QStringList days() const { return m_days; }
    void setDays(const QStringList &days)
    {
        if (std::exchange(m_days, days) != days)
            emit daysChanged();
    }

    QStringList concurrentMatchIDs() const { return m_concurrentMatchIDs; }
    void setConcurrentMatchIDs(const QStringList &ids)
    {
        if (std::exchange(m_concurrentMatchIDs, ids) != ids)
            emit concurrentMatchIDsChanged();
    }

signals:
    void daysChanged();
    void concurrentMatchIDsChanged();

private:
    RecordListModel *fixturesModel() { return &fixtures; }
    RecordListModel *liveMatchesModel() { return &liveMatches; }
    RecordListModel *favoriteTeamsModel() { return &favoriteTeams; }
    RecordListModel *favoriteLiveModel() { return &favoriteLive; }
    RecordListModel *favoriteComingModel() { return &favoriteComing; }
    RecordListModel *favoriteResultsModel() { return &favoriteResults; }
    RecordListModel *groupTablesModel() { return &groupTables; }
    RecordListModel *teamsModel() { return &teams; }
    RecordListModel *stadiumsModel() { return &stadiums; }

    QStringList m_days;
    QStringList m_concurrentMatchIDs;
};
