#include "AppModel.h"

#include "Models/BracketSlot.h"
#include "Support/StatusLine.h"
#include "Support/TextParsing.h"

#include <algorithm>

namespace {

template<typename List, typename Less>
List stablySorted(List list, Less less)
{
    std::stable_sort(list.begin(), list.end(), less);
    return list;
}

// Midday of the key's day in the formatters' zone, so that formatting gives that day back.
QDateTime middayOf(const QString &dateKey)
{
    const QDate day = QDate::fromString(dateKey, Qt::ISODate);
    return day.isValid() ? QDateTime(day, QTime(12, 0), WCFormatters::shared().timeZone()) : QDateTime();
}

} // namespace

QString AppModel::friendlyDate(const QString &dateKey) const
{
    const QDateTime midday = middayOf(dateKey);
    return midday.isValid() ? WCFormatters::shared().friendlyDate(midday) : QString();
}

QString AppModel::weekdayShort(const QString &dateKey) const
{
    const QDateTime midday = middayOf(dateKey);
    return midday.isValid() ? WCFormatters::shared().weekdayShort(midday) : QString();
}

QString AppModel::dayNumber(const QString &dateKey) const
{
    const QDateTime midday = middayOf(dateKey);
    return midday.isValid() ? WCFormatters::shared().dayNumber(midday) : QString();
}

void AppModel::rebuildGlobalCaches()
{
    QList<Match> live;
    std::copy_if(m_allMatches.cbegin(), m_allMatches.cend(), std::back_inserter(live),
                 [](const Match &match) { return isLive(match.status); });
    m_liveMatchesCache =
        stablySorted(live, [this](const Match &a, const Match &b) { return prioritizedMatchSort(a, b); });

    QList<TeamSummary> favorites;
    for (const QString &teamID : m_favoriteTeamIDs)
        favorites.append(teamSummary(teamID));
    m_favoriteTeamsCache =
        stablySorted(favorites, [](const TeamSummary &a, const TeamSummary &b) { return a.name < b.name; });
    emit favoriteTeamsChanged();

    m_contestedKickoffsCache = computeContestedKickoffs();
    QStringList concurrent;
    for (const Match &match : std::as_const(m_allMatches)) {
        if (isConcurrentMatch(match))
            concurrent.append(match.id);
    }
    m_lists.setConcurrentMatchIDs(concurrent);

    m_lists.liveMatches.update(m_liveMatchesCache);
    m_lists.favoriteTeams.update(m_favoriteTeamsCache);
    feedFavoriteLists();
    feedGroupTables();
    feedTeamList();
    m_lists.stadiums.update(allStadiumsSorted());
    m_lists.setDays(dateStripKeys());

    const auto chosen = trayMatch(m_liveMatchesCache);
    setTrayTitle(chosen ? std::optional(trayTitleFor(*chosen)) : std::nullopt);
}

void AppModel::applySelectedDateFilter()
{
    const WCFormatters &formatters = WCFormatters::shared();
    const QString todayKey = formatters.dateKey(now());
    const std::optional<QString> &teamFilter = m_navigation.selectedTeamFilterID();
    const QString &selectedDate = m_navigation.selectedDate();
    QList<Match> filtered;
    for (const Match &match : std::as_const(m_allMatches)) {
        const bool keep = teamFilter ? (match.homeTeamID == *teamFilter || match.awayTeamID == *teamFilter)
                                     : (match.kickoffDate.isValid() ? formatters.dateKey(match.kickoffDate)
                                                                    : todayKey) == selectedDate;
        if (keep)
            filtered.append(match);
    }
    filtered =
        stablySorted(filtered, [this](const Match &a, const Match &b) { return fixtureListSort(a, b); });
    const QString subject = teamFilter ? QStringLiteral("team:") + *teamFilter : selectedDate;
    if (subject != m_fixturesSubject) {
        m_fixturesSubject = subject;
        m_lists.fixtures.replace(filtered);
    } else {
        m_lists.fixtures.update(filtered);
    }
    // An unchanged list is not published again, so a refresh that brings nothing new redraws nothing.
    if (filtered != m_matches)
        setMatches(filtered);
}

void AppModel::feedFavoriteLists()
{
    const FavoriteMatchGroups groups = favoriteMatchGroups();
    m_lists.favoriteLive.update(groups.running);
    m_lists.favoriteComing.update(groups.coming);
    m_lists.favoriteResults.update(groups.results);
}

void AppModel::feedGroupTables()
{
    QList<GroupStanding> tables;
    for (const QString &letter : groupsByInterest()) {
        const auto table =
            std::find_if(m_standings.cbegin(), m_standings.cend(),
                         [&letter](const GroupStanding &standing) { return standing.group == letter; });
        if (table != m_standings.cend())
            tables.append(*table);
    }
    m_lists.groupTables.update(tables);
}

void AppModel::feedTeamList()
{
    if (!m_navigation.teamSearchText().trimmed().isEmpty()) {
        m_lists.teams.update(teamSearchResults());
        return;
    }
    QList<TeamSearchResult> all;
    for (const APITeam &team : allTeamsSorted()) {
        all.append(TeamSearchResult{
            team.id, team.nameEn, team.fifaCode, Normalization::flagURL(team), team.flagEmoji(),
            team.groups.isEmpty() ? std::nullopt : std::optional(QStringLiteral("Group ") + team.groups)});
    }
    m_lists.teams.update(all);
}

bool AppModel::involvesFavorite(const Match &match) const
{
    return m_favoriteTeamIDs.contains(match.homeTeamID) || m_favoriteTeamIDs.contains(match.awayTeamID);
}

bool AppModel::prioritizedMatchSort(const Match &a, const Match &b) const
{
    if (involvesFavorite(a) != involvesFavorite(b))
        return involvesFavorite(a);
    if (isLive(a.status) != isLive(b.status))
        return isLive(a.status);
    return sortMatchesByKickoff(a, b);
}

bool AppModel::fixtureListSort(const Match &a, const Match &b) const
{
    if (isLive(a.status) != isLive(b.status))
        return isLive(a.status);
    if (involvesFavorite(a) != involvesFavorite(b))
        return involvesFavorite(a);
    return sortMatchesByKickoff(a, b);
}

bool AppModel::sortMatchesByKickoff(const Match &a, const Match &b)
{
    const bool aDated = a.kickoffDate.isValid();
    const bool bDated = b.kickoffDate.isValid();
    if (aDated && bDated)
        return a.kickoffDate < b.kickoffDate;
    if (aDated != bDated)
        return aDated;
    return a.matchNumber < b.matchNumber;
}

QStringList AppModel::dateStripKeys() const
{
    const WCFormatters &formatters = WCFormatters::shared();
    // Days are added in the user's zone so that the strip steps by calendar day across DST changes.
    const QDateTime today = now().toTimeZone(formatters.timeZone());
    QStringList keys;
    for (int offset = -3; offset <= 10; ++offset)
        keys.append(formatters.dateKey(today.addDays(offset)));
    return keys;
}

QSet<QDateTime> AppModel::computeContestedKickoffs() const
{
    QHash<QDateTime, int> counts;
    for (const Match &match : m_allMatches) {
        if (match.kickoffDate.isValid())
            ++counts[match.kickoffDate];
    }
    QSet<QDateTime> contested;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() >= 2)
            contested.insert(it.key());
    }
    return contested;
}

bool AppModel::isConcurrentMatch(const Match &match) const
{
    return match.status != MatchStatus::finished && match.kickoffDate.isValid() &&
           m_contestedKickoffsCache.contains(match.kickoffDate);
}

QList<Match> AppModel::matchesForStadiumID(const QString &stadiumID) const
{
    const auto stadium = m_stadiumsByID.constFind(stadiumID);
    if (stadium == m_stadiumsByID.constEnd())
        return {};
    // Matched by venue name, which is what the match carries from normalisation.
    QList<Match> held;
    std::copy_if(m_allMatches.cbegin(), m_allMatches.cend(), std::back_inserter(held),
                 [&name = stadium->nameEn](const Match &match) { return match.stadium == name; });
    return stablySorted(held, &AppModel::sortMatchesByKickoff);
}

QList<APIStadium> AppModel::allStadiumsSorted() const
{
    const auto number = [](const APIStadium &stadium) {
        return TextParsing::parseInteger(stadium.id).value_or(0);
    };
    return stablySorted(m_stadiumsByID.values(), [&number](const APIStadium &a, const APIStadium &b) {
        return number(a) < number(b);
    });
}

QList<APITeam> AppModel::allTeamsSorted() const
{
    return stablySorted(m_teamsByID.values(),
                        [](const APITeam &a, const APITeam &b) { return a.nameEn < b.nameEn; });
}

std::optional<QString> AppModel::groupLabel(const QString &teamID) const
{
    for (const GroupStanding &group : m_standings) {
        const bool holdsTeam =
            std::any_of(group.standings.cbegin(), group.standings.cend(),
                        [&teamID](const StandingRow &row) { return row.teamID == teamID; });
        if (!holdsTeam)
            continue;
        if (!group.group.isEmpty())
            return QStringLiteral("Group ") + group.group;
        break;
    }
    const auto team = m_teamsByID.constFind(teamID);
    if (team != m_teamsByID.constEnd() && !team->groups.isEmpty())
        return QStringLiteral("Group ") + team->groups;
    return std::nullopt;
}

std::optional<Match> AppModel::trayMatch(const QList<Match> &live) const
{
    if (live.isEmpty())
        return std::nullopt;
    switch (m_menuBar.displayMode()) {
    case TrayDisplayMode::automatic:
        return live.constFirst();
    case TrayDisplayMode::rotate:
        return live.at(m_liveRotationIndex % live.size());
    case TrayDisplayMode::pinned:
        if (const auto &pinnedID = m_menuBar.pinnedLiveMatchID()) {
            const auto pinned = std::find_if(live.cbegin(), live.cend(), [&pinnedID](const Match &match) {
                return match.id == *pinnedID;
            });
            if (pinned != live.cend())
                return *pinned;
        }
        return live.constFirst();
    }
    return std::nullopt;
}

AppModel::FavoriteMatchGroups AppModel::favoriteMatchGroups() const
{
    FavoriteMatchGroups groups;
    for (const Match &match : m_allMatches) {
        if (!involvesFavorite(match))
            continue;
        if (isLive(match.status))
            groups.running.append(match);
        else if (match.status == MatchStatus::finished)
            groups.results.append(match);
        else
            groups.coming.append(match);
    }
    groups.running = stablySorted(groups.running,
                                  [this](const Match &a, const Match &b) { return fixtureListSort(a, b); });
    groups.coming = stablySorted(groups.coming, &AppModel::sortMatchesByKickoff);
    groups.results = stablySorted(groups.results,
                                  [](const Match &a, const Match &b) { return sortMatchesByKickoff(b, a); });
    return groups;
}

QList<Match> AppModel::favoriteMatches() const
{
    const FavoriteMatchGroups groups = favoriteMatchGroups();
    return groups.running + groups.coming + groups.results;
}

QDateTime AppModel::cachedDataTime() const
{
    return m_api->cacheTimestamp().value_or(QDateTime());
}

QString AppModel::statusLine() const
{
    return panelStatusLine(m_isLoading, m_lastUpdated, QLocale(), WCFormatters::shared().timeZone());
}

TeamSummary AppModel::teamSummary(const QString &teamID) const
{
    const auto team = m_teamsByID.constFind(teamID);
    if (team == m_teamsByID.constEnd())
        return TeamSummary{teamID, QStringLiteral("Team ") + teamID, {}, {}, {}};
    return TeamSummary{teamID, team->nameEn, team->fifaCode, Normalization::flagURL(*team),
                       team->flagEmoji()};
}

QString AppModel::detailTitle(const PanelRoute &route) const
{
    switch (route.kind) {
    case PanelRoute::Kind::match:
        return QStringLiteral("Match");
    case PanelRoute::Kind::team:
        return teamSummary(route.id).name;
    case PanelRoute::Kind::stadium: {
        const auto stadium = m_stadiumsByID.constFind(route.id);
        return stadium == m_stadiumsByID.constEnd() ? QStringLiteral("Stadium") : stadium->nameEn;
    }
    case PanelRoute::Kind::settings:
        break;
    }
    return QStringLiteral("Settings");
}

QList<TeamSearchResult> AppModel::teamSearchResults() const
{
    constexpr qsizetype maximumResults = 20;
    const QString query = m_navigation.teamSearchText().trimmed().toLower();
    if (query.isEmpty())
        return {};
    QList<APITeam> found;
    for (const APITeam &team : m_teamsByID) {
        if (team.nameEn.toLower().contains(query) || team.fifaCode.toLower().contains(query) ||
            team.iso2.toLower().contains(query))
            found.append(team);
    }
    found = stablySorted(found, [](const APITeam &a, const APITeam &b) { return a.nameEn < b.nameEn; });
    QList<TeamSearchResult> results;
    for (const APITeam &team : found.first(std::min(found.size(), maximumResults)))
        results.append(TeamSearchResult{team.id, team.nameEn, team.fifaCode, Normalization::flagURL(team),
                                        team.flagEmoji(), groupLabel(team.id)});
    return results;
}

QList<Match> AppModel::matchesOfTeam(const QString &teamID) const
{
    QList<Match> matches;
    std::copy_if(
        m_allMatches.cbegin(), m_allMatches.cend(), std::back_inserter(matches),
        [&teamID](const Match &match) { return match.homeTeamID == teamID || match.awayTeamID == teamID; });
    return stablySorted(matches, &AppModel::sortMatchesByKickoff);
}

TeamDetailState AppModel::teamDetailState(const QString &teamID) const
{
    TeamDetailState state;
    state.id = teamID;
    state.summary = teamSummary(teamID);
    for (const GroupStanding &group : m_standings) {
        const auto row =
            std::find_if(group.standings.cbegin(), group.standings.cend(),
                         [&teamID](const StandingRow &standing) { return standing.teamID == teamID; });
        if (row != group.standings.cend()) {
            state.group = group.group;
            state.groupStanding = group;
            state.standing = *row;
            break;
        }
    }
    state.matches = matchesOfTeam(teamID);
    const auto finished = [](const Match &match) { return match.status == MatchStatus::finished; };
    const auto next = std::find_if_not(state.matches.cbegin(), state.matches.cend(), finished);
    if (next != state.matches.cend())
        state.nextMatch = *next;
    const auto latest = std::find_if(state.matches.crbegin(), state.matches.crend(), finished);
    if (latest != state.matches.crend())
        state.latestResult = *latest;
    return state;
}

bool AppModel::canFollow(const QString &teamID) const
{
    return BracketSlot::isDecidedSide(teamID);
}

QStringList AppModel::groupsByInterest() const
{
    QStringList groups;
    for (const TeamSummary &team : m_favoriteTeamsCache) {
        const auto label = groupLabel(team.id);
        const QString group = label ? label->mid(QStringLiteral("Group ").size()) : QString();
        if (m_allGroups.contains(group) && !groups.contains(group))
            groups.append(group);
    }
    for (const QString &group : m_allGroups) {
        if (!groups.contains(group))
            groups.append(group);
    }
    return groups;
}

DayFacts AppModel::dayFacts(const QString &dateKey) const
{
    return DayFacts::of(dateKey, m_allMatches, m_bracket, now(), WCFormatters::shared());
}
