#include "AppModel.h"

#include <QPointer>

void AppModel::startPolling()
{
    // Never two live timers: the old one is silenced before it is stopped and replaced.
    if (m_pollingTimer) {
        m_pollingTimer->disconnect();
        m_pollingTimer->stop();
    }
    m_pollingTimer = std::make_unique<QTimer>();
    m_pollingTimer->setTimerType(Qt::PreciseTimer);
    m_pollingTimer->setInterval(std::chrono::seconds(seconds(m_menuBar.refreshInterval())));
    connect(m_pollingTimer.get(), &QTimer::timeout, this, &AppModel::refresh);
    m_pollingTimer->start();
}

void AppModel::refresh()
{
    fetchAll();
}

QCoro::Task<Result<QList<APITeam>, FetchError>> AppModel::fetchTeamsIfNeeded()
{
    // Teams and stadiums do not change during the tournament; once held they are not asked for again.
    if (!m_teamsByID.isEmpty())
        co_return QList<APITeam>();
    auto response = co_await m_api->decode<APITeamsResponse>(APIService::teamsPath);
    if (!response)
        co_return Result<QList<APITeam>, FetchError>::failure(response.error());
    co_return std::move(response).value().teams;
}

QCoro::Task<Result<QList<APIStadium>, FetchError>> AppModel::fetchStadiumsIfNeeded()
{
    if (!m_stadiumsByID.isEmpty())
        co_return QList<APIStadium>();
    auto response = co_await m_api->decode<APIStadiumsResponse>(APIService::stadiumsPath);
    if (!response)
        co_return Result<QList<APIStadium>, FetchError>::failure(response.error());
    co_return std::move(response).value().stadiums;
}

QCoro::Task<> AppModel::fetchAll()
{
    if (m_isFetching)
        co_return;
    m_isFetching = true;
    setIsLoading(true);
    setErrorMessage(std::nullopt);

    // All four requests run at once; their answers are applied in a fixed order whatever order they
    // arrive in, so that matches are normalised against the teams and stadiums of this same cycle.
    auto teamsTask = fetchTeamsIfNeeded();
    auto stadiumsTask = fetchStadiumsIfNeeded();
    auto groupsTask = m_api->decode<APIGroupsResponse>(APIService::groupsPath);
    auto gamesTask = m_api->decode<APIGamesResponse>(APIService::gamesPath);
    const QPointer<AppModel> alive(this);

    bool anyData = false;
    const auto teams = co_await std::move(teamsTask);
    if (!alive)
        co_return;
    if (teams && !teams->isEmpty()) {
        applyTeams(*teams);
        anyData = true;
    }
    const auto stadiums = co_await std::move(stadiumsTask);
    if (!alive)
        co_return;
    if (stadiums && !stadiums->isEmpty()) {
        applyStadiums(*stadiums);
        anyData = true;
    }
    const auto groups = co_await std::move(groupsTask);
    if (!alive)
        co_return;
    if (groups && !groups->groups.isEmpty()) {
        applyGroups(groups->groups);
        anyData = true;
    }
    const auto games = co_await std::move(gamesTask);
    if (!alive)
        co_return;
    if (games && !games->games.isEmpty()) {
        applyMatches(games->games, true);
        applySelectedDateFilter();
        rebuildGlobalCaches();
        setErrorMessage(std::nullopt);
        setLastUpdated(now());
    } else {
        // Nothing new to show: keep what is on screen, and say so only when there is nothing at all.
        rebuildGlobalCaches();
        if (anyData) {
            setErrorMessage(std::nullopt);
            setLastUpdated(now());
        } else if (m_allMatches.isEmpty() && m_teamsByID.isEmpty()) {
            setErrorMessage(unreachableMessage);
        }
    }

    setIsLoading(false);
    m_isFetching = false;
}
