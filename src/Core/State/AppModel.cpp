#include "AppModel.h"

#include "Models/BracketSlot.h"
#include "SettingsKeys.h"
#include "XdgAutostartLoginItem.h"

#include <QFile>

namespace {

QStringList groupLetters()
{
    QStringList letters;
    for (const QChar letter : QStringLiteral("ABCDEFGHIJKL"))
        letters.append(letter);
    return letters;
}

} // namespace

AppModel::AppModel(QObject *parent) : AppModel(Services(), parent) {}

AppModel::AppModel(Services services, QObject *parent)
    : QObject(parent), m_api(services.api ? services.api : &APIService::shared()),
      m_settings(services.settings ? std::move(services.settings) : std::make_unique<SettingsStore>()),
      m_notifier(std::move(services.notifications)),
      m_now(services.now ? std::move(services.now) : [] { return QDateTime::currentDateTimeUtc(); }),
      m_openFile(services.openFile ? std::move(services.openFile) : [](const QString &) {}),
      m_glass(*m_settings, std::move(services.applyTint), this), m_alerts(*m_settings, this),
      m_menuBar(*m_settings, this),
      m_startAtLogin(services.loginItem ? std::move(services.loginItem)
                                        : std::make_unique<XdgAutostartLoginItem>(),
                     this),
      m_navigation(WCFormatters::shared().dateKey(m_now()), this), m_allGroups(groupLetters())
{
    m_bannerTimer.setSingleShot(true);
    m_bannerTimer.setTimerType(Qt::PreciseTimer);
    m_bannerTimer.setInterval(bannerLifetime);
    loadSettings();
    // The tray's title follows its choices; the polling timer, the period.
    connect(&m_menuBar, &MenuBarPreferences::displayModeChanged, this, &AppModel::rebuildGlobalCaches);
    connect(&m_menuBar, &MenuBarPreferences::pinnedLiveMatchIDChanged, this, &AppModel::rebuildGlobalCaches);
    connect(&m_menuBar, &MenuBarPreferences::refreshIntervalChanged, this, &AppModel::startPolling);
    // So do the lists and facts that show what the user chose in the panel.
    connect(&m_navigation, &PanelNavigation::selectedDateChanged, this, &AppModel::selectedDayFactsChanged);
    connect(&m_navigation, &PanelNavigation::teamSearchTextChanged, this, &AppModel::feedTeamList);
    if (NotificationSender *center = m_notifier.center())
        connect(center, &NotificationSender::activated, this, &AppModel::showMatchFromNotification);
    hydrateFromCache();
}

AppModel::~AppModel()
{
    // No tick may start a fetch while the model is torn down.
    if (m_pollingTimer) {
        m_pollingTimer->disconnect();
        m_pollingTimer->stop();
    }
}

void AppModel::loadSettings()
{
    const auto favorites = m_settings->stringList(SettingsKeys::favoriteTeamIDs).value_or(QStringList());
    m_favoriteTeamIDs = QSet<QString>(favorites.cbegin(), favorites.cend());
    // Earlier versions let a knockout slot be followed as team "0".
    m_favoriteTeamIDs.removeIf([](const QString &teamID) { return !BracketSlot::isDecidedSide(teamID); });
    m_hideScores = m_settings->boolean(SettingsKeys::hideScores).value_or(false);
}

void AppModel::hydrateFromCache()
{
    // An endpoint whose cache is missing, unreadable or undecodable counts as an empty list.
    const auto cachedList = [this]<typename Envelope, typename List>(const QString &path,
                                                                     List Envelope::*list) {
        const auto file = m_api->cacheURL(path);
        if (!file)
            return List();
        QFile cache(*file);
        if (!cache.open(QIODevice::ReadOnly))
            return List();
        auto decoded = Envelope::decode(cache.readAll());
        return decoded ? std::move(decoded).value().*list : List();
    };
    const QList<APIGame> games = cachedList(APIService::gamesPath, &APIGamesResponse::games);
    const QList<APIGroup> groups = cachedList(APIService::groupsPath, &APIGroupsResponse::groups);
    const QList<APITeam> teams = cachedList(APIService::teamsPath, &APITeamsResponse::teams);
    const QList<APIStadium> stadiums = cachedList(APIService::stadiumsPath, &APIStadiumsResponse::stadiums);
    if (games.isEmpty() && groups.isEmpty() && teams.isEmpty() && stadiums.isEmpty())
        return;

    applyTeams(teams);
    applyStadiums(stadiums);
    // Cached data raises no alerts: it is what the user saw last time.
    if (!games.isEmpty())
        applyMatches(games, false);
    applyGroups(groups);
    rebuildGlobalCaches();
    applySelectedDateFilter();
    if (const auto timestamp = m_api->cacheTimestamp())
        setLastUpdated(*timestamp);
}

// Setters of observed members: each stores and notifies, even when the value is unchanged.

void AppModel::setMatches(const QList<Match> &matches)
{
    m_matches = matches;
    emit matchesChanged();
}

void AppModel::setStandings(const QList<GroupStanding> &standings)
{
    m_standings = standings;
    emit standingsChanged();
}

void AppModel::setIsLoading(bool loading)
{
    m_isLoading = loading;
    emit isLoadingChanged();
    emit statusLineChanged();
}

void AppModel::setErrorMessage(const std::optional<QString> &message)
{
    m_errorMessage = message;
    emit errorMessageChanged();
}

void AppModel::setLastUpdated(const QDateTime &instant)
{
    m_lastUpdated = instant;
    emit lastUpdatedChanged();
    emit statusLineChanged();
}

void AppModel::setTrayTitle(const std::optional<QString> &title)
{
    m_trayTitle = title;
    emit trayTitleChanged();
}

void AppModel::setFavoriteTeamIDs(const QSet<QString> &teamIDs)
{
    m_favoriteTeamIDs = teamIDs;
    emit favoriteTeamIDsChanged();
}

QStringList AppModel::favoriteTeamIDList() const
{
    QStringList teamIDs(m_favoriteTeamIDs.cbegin(), m_favoriteTeamIDs.cend());
    teamIDs.sort();
    return teamIDs;
}

void AppModel::setActiveBanner(const std::optional<BannerState> &banner)
{
    m_activeBanner = banner;
    emit activeBannerChanged();
}

QVariant AppModel::activeBannerValue() const
{
    return m_activeBanner ? QVariant::fromValue(*m_activeBanner) : QVariant();
}

void AppModel::setTeamsByID(const TeamTable &teams)
{
    m_teamsByID = teams;
    emit teamsByIDChanged();
}

void AppModel::setStadiumsByID(const StadiumTable &stadiums)
{
    m_stadiumsByID = stadiums;
    emit stadiumsByIDChanged();
}

void AppModel::setAllMatches(const QList<Match> &matches)
{
    m_allMatches = matches;
    m_bracket = KnockoutBracket::from(m_allMatches);
    emit allMatchesChanged();
    emit selectedDayFactsChanged();
}
