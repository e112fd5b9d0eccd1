#pragma once

#include "AlertPreferences.h"
#include "AppEnums.h"
#include "GlassPreferences.h"
#include "Lists/ScreenLists.h"
#include "LoginItem.h"
#include "MenuBarPreferences.h"
#include "Models/APIResponses.h"
#include "Models/BannerState.h"
#include "Models/DayFacts.h"
#include "Models/GroupStanding.h"
#include "Models/KnockoutBracket.h"
#include "Models/Match.h"
#include "Models/MatchSnapshot.h"
#include "Models/TeamDetailState.h"
#include "Models/TeamSearchResult.h"
#include "Models/TeamSummary.h"
#include "Navigation/PanelRoute.h"
#include "Networking/APIService.h"
#include "Normalization.h"
#include "Notifications/NotificationManager.h"
#include "PanelNavigation.h"
#include "SettingsStore.h"
#include "StartAtLogin.h"

#include <QDateTime>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <QCoro/QCoroTask>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

// The one owner of Pitchlark's state: tournament data as last received, what the panel shows, the
// navigation stack, the user's settings, the refresh cycle and match alerts. Lives on the main thread.
// Cohesive parts of it live in small objects the model owns, and the model rebuilds what depends on
// them when they signal a change. Its own observed members notify on every write, even of an equal
// value; derived data is recomputed by the code that changes its inputs.
class AppModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<Match> matches READ matches NOTIFY matchesChanged)
    Q_PROPERTY(QList<GroupStanding> standings READ standings NOTIFY standingsChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    Q_PROPERTY(QString errorMessage READ errorMessageText NOTIFY errorMessageChanged)
    Q_PROPERTY(QDateTime lastUpdated READ lastUpdated NOTIFY lastUpdatedChanged)
    // When the answers kept on disk were written: each good answer rewrites them.
    Q_PROPERTY(QDateTime cachedAt READ cachedDataTime NOTIFY lastUpdatedChanged)
    Q_PROPERTY(QString trayTitle READ trayTitleText NOTIFY trayTitleChanged)
    // "Updated 21:30" or "Loading…" under the panel's title.
    Q_PROPERTY(QString statusLine READ statusLine NOTIFY statusLineChanged)
    Q_PROPERTY(QStringList favoriteTeamIDs READ favoriteTeamIDList NOTIFY favoriteTeamIDsChanged)
    Q_PROPERTY(QVariant activeBanner READ activeBannerValue NOTIFY activeBannerChanged)
    Q_PROPERTY(bool hideScores READ hideScores WRITE setHideScores NOTIFY hideScoresChanged)
    // The matches whose scores the user revealed this session while scores are hidden.
    Q_PROPERTY(QStringList revealedMatchIDs READ revealedMatchIDList NOTIFY revealedMatchIDsChanged)
    Q_PROPERTY(QList<APIStadium> allStadiumsSorted READ allStadiumsSorted NOTIFY stadiumsByIDChanged)
    Q_PROPERTY(QList<Match> allMatches READ allMatches NOTIFY allMatchesChanged)
    Q_PROPERTY(QStringList allGroups READ allGroups CONSTANT)
    // The same data as id-keyed list models, which the screens are built on: the live matches and the
    // followed teams reach QML only through them.
    Q_PROPERTY(ScreenLists *lists READ lists CONSTANT)
    // The parts of the state that live in objects of their own.
    Q_PROPERTY(GlassPreferences *glass READ glassObject CONSTANT)
    Q_PROPERTY(AlertPreferences *alerts READ alertsObject CONSTANT)
    Q_PROPERTY(MenuBarPreferences *menuBar READ menuBarObject CONSTANT)
    Q_PROPERTY(StartAtLogin *startAtLogin READ startAtLoginObject CONSTANT)
    Q_PROPERTY(PanelNavigation *navigation READ navigationObject CONSTANT)
    // Depends on the favourites and on the tables, which arrive before the caches are rebuilt.
    Q_PROPERTY(QStringList groupsByInterest READ groupsByInterest NOTIFY favoriteTeamsChanged)
    // What the fixtures screen says when the selected day has no matches.
    Q_PROPERTY(DayFacts selectedDayFacts READ selectedDayFacts NOTIFY selectedDayFactsChanged)
    // The knockout tree, read from the matches each time they change.
    Q_PROPERTY(KnockoutBracket bracket READ bracket NOTIFY allMatchesChanged)

public:
    static constexpr std::chrono::milliseconds bannerLifetime{4500};
    static inline const QString unreachableMessage = QStringLiteral("Couldn't reach the World Cup service.");

    // What the model talks to. Anything left empty gets the real thing for this desktop.
    struct Services {
        APIService *api = nullptr;
        std::unique_ptr<SettingsStore> settings;
        std::unique_ptr<LoginItem> loginItem;
        std::unique_ptr<NotificationSender> notifications;
        std::function<QDateTime()> now;
        // Re-tints the panel's inks; the design system lives outside the core, so the app hands it in.
        std::function<void(double hue, double strength)> applyTint;
        // Opens a file with the desktop's default handler; a GUI concern, so the app hands it in.
        std::function<void(const QString &path)> openFile;
    };

    explicit AppModel(QObject *parent = nullptr);
    explicit AppModel(Services services, QObject *parent = nullptr);
    ~AppModel() override;

    // Observed members.
    const QList<Match> &matches() const { return m_matches; }
    const QList<GroupStanding> &standings() const { return m_standings; }
    bool isLoading() const { return m_isLoading; }
    const std::optional<QString> &errorMessage() const { return m_errorMessage; }
    const QDateTime &lastUpdated() const { return m_lastUpdated; }
    const std::optional<QString> &trayTitle() const { return m_trayTitle; }
    const QSet<QString> &favoriteTeamIDs() const { return m_favoriteTeamIDs; }
    const std::optional<BannerState> &activeBanner() const { return m_activeBanner; }
    bool hideScores() const { return m_hideScores; }
    const TeamTable &teamsByID() const { return m_teamsByID; }
    const StadiumTable &stadiumsByID() const { return m_stadiumsByID; }
    const QList<Match> &allMatches() const { return m_allMatches; }
    const QStringList &allGroups() const { return m_allGroups; }

    // The model's clock: the wall clock, or the replay's in the demo.
    QDateTime now() const { return m_now(); }

    // Plain members: not observed.
    const QList<Match> &liveMatchesCache() const { return m_liveMatchesCache; }
    const QList<TeamSummary> &favoriteTeamsCache() const { return m_favoriteTeamsCache; }
    const QSet<QDateTime> &contestedKickoffsCache() const { return m_contestedKickoffsCache; }
    const ScreenLists &screenLists() const { return m_lists; }
    // The running polling timer; none before startPolling().
    const QTimer *pollingTimer() const { return m_pollingTimer.get(); }

    // The parts of the state that live in objects of their own.
    GlassPreferences &glass() { return m_glass; }
    const GlassPreferences &glass() const { return m_glass; }
    AlertPreferences &alerts() { return m_alerts; }
    const AlertPreferences &alerts() const { return m_alerts; }
    MenuBarPreferences &menuBar() { return m_menuBar; }
    const MenuBarPreferences &menuBar() const { return m_menuBar; }
    StartAtLogin &startAtLogin() { return m_startAtLogin; }
    const StartAtLogin &startAtLogin() const { return m_startAtLogin; }
    PanelNavigation &navigation() { return m_navigation; }
    const PanelNavigation &navigation() const { return m_navigation; }

    // Writes made directly by the screens.
    void setHideScores(bool hidden);

    // Refresh cycle.
    void startPolling();
    Q_INVOKABLE void refresh();
    QCoro::Task<> fetchAll();
    void applyTeams(const QList<APITeam> &teams);
    void applyStadiums(const QList<APIStadium> &stadiums);
    void applyGroups(const QList<APIGroup> &groups);
    void applyMatches(const QList<APIGame> &games, bool fireEvents);

    // Actions.
    // The fixtures page filtered to one team, with every detail page closed on the way.
    Q_INVOKABLE void showTeamFixtures(const QString &teamID);
    Q_INVOKABLE void toggleFavorite(const QString &teamID);

    // Derived queries.
    void rebuildGlobalCaches();
    Q_INVOKABLE void applySelectedDateFilter();
    bool prioritizedMatchSort(const Match &a, const Match &b) const;
    bool fixtureListSort(const Match &a, const Match &b) const;
    static bool sortMatchesByKickoff(const Match &a, const Match &b);
    QStringList dateStripKeys() const;
    // A date key's day as the strip and the headings write it: "Sat, Jun 27", "Sat", "27". Empty for text
    // that is not a date key.
    Q_INVOKABLE QString friendlyDate(const QString &dateKey) const;
    Q_INVOKABLE QString weekdayShort(const QString &dateKey) const;
    Q_INVOKABLE QString dayNumber(const QString &dateKey) const;
    QSet<QDateTime> computeContestedKickoffs() const;
    bool isConcurrentMatch(const Match &match) const;
    Q_INVOKABLE QList<Match> matchesForStadiumID(const QString &stadiumID) const;
    // The followed teams' matches: running ones, then those to come by kick-off, then results, latest
    // first.
    Q_INVOKABLE QList<Match> favoriteMatches() const;
    // Where the data comes from, and when the data on disk was last written (invalid when none is).
    Q_INVOKABLE QString dataServiceURL() const { return APIService::baseURL(); }
    QDateTime cachedDataTime() const;
    // The line under the panel's title: loading, the time of the last update, or neither.
    QString statusLine() const;
    QList<APIStadium> allStadiumsSorted() const;
    QList<APITeam> allTeamsSorted() const;
    std::optional<QString> groupLabel(const QString &teamID) const;
    Q_INVOKABLE bool isFavorite(const QString &teamID) const { return m_favoriteTeamIDs.contains(teamID); }
    // Only decided sides can be followed; a knockout slot ("Winner Group E") is team "0".
    Q_INVOKABLE bool canFollow(const QString &teamID) const;
    // Group letters, the followed teams' groups first (in the favourites' order), then the rest.
    QStringList groupsByInterest() const;
    const KnockoutBracket &bracket() const { return m_bracket; }
    // What a day without matches can offer instead: a countdown, the nearest match days, the champion.
    Q_INVOKABLE DayFacts dayFacts(const QString &dateKey) const;
    DayFacts selectedDayFacts() const { return dayFacts(m_navigation.selectedDate()); }
    std::optional<Match> trayMatch(const QList<Match> &live) const;
    Q_INVOKABLE TeamSummary teamSummary(const QString &teamID) const;
    // The title over a detail page: the team's or the venue's name, else what the page is.
    Q_INVOKABLE QString detailTitle(const PanelRoute &route) const;
    Q_INVOKABLE QList<TeamSearchResult> teamSearchResults() const;
    Q_INVOKABLE TeamDetailState teamDetailState(const QString &teamID) const;
    // One team's matches by kick-off.
    QList<Match> matchesOfTeam(const QString &teamID) const;

    // Calendar: writes an iCalendar file of the matches and opens it with the desktop's calendar.
    // False when there is nothing to add or the file cannot be written.
    Q_INVOKABLE bool addMatchToCalendar(const QString &matchID);
    Q_INVOKABLE bool addTeamToCalendar(const QString &teamID);
    Q_INVOKABLE bool addFavoritesToCalendar();

    // Spoiler-free mode: while scores are hidden, a match's score shows only once the user reveals it,
    // and stays revealed for the session unless concealed again.
    Q_INVOKABLE bool isScoreHidden(const QString &matchID) const;
    Q_INVOKABLE void revealScore(const QString &matchID);
    Q_INVOKABLE void concealScore(const QString &matchID);
    // The tray's label and tooltip line for a live match, without its score while that is hidden.
    QString trayTitleFor(const Match &match) const;
    QString trayLineFor(const Match &match) const;

    // Alerts.
    void processNotificationEvents(const QList<Match> &matches);
    Q_INVOKABLE void presentBanner(const BannerState &banner);
    // A click on a match's notification: that match's page, on a panel that opens if it was closed.
    void showMatchFromNotification(const QString &matchID);
    Q_INVOKABLE void dismissBanner();

    Match normalizeMatch(const APIGame &game) const;
    GroupStanding normalizeStanding(const APIGroup &group) const;
    void hydrateFromCache();

signals:
    void matchesChanged();
    void favoriteTeamsChanged();
    void standingsChanged();
    void isLoadingChanged();
    void errorMessageChanged();
    void lastUpdatedChanged();
    void statusLineChanged();
    void trayTitleChanged();
    void selectedDayFactsChanged();
    void favoriteTeamIDsChanged();
    void activeBannerChanged();
    void hideScoresChanged();
    void revealedMatchIDsChanged();
    void teamsByIDChanged();
    void stadiumsByIDChanged();
    void allMatchesChanged();
    // One alert was raised (a notification was posted), for observers such as `pitchlark status --watch`.
    void alertRaised(BannerState::Kind kind, const QString &title, const QString &body);
    // Something the user did outside the panel asks for it to be shown.
    void panelRequested();

private:
    // QML-facing forms of optional and enumerated members.
    QString errorMessageText() const { return m_errorMessage.value_or(QString()); }
    QString trayTitleText() const { return m_trayTitle.value_or(QString()); }
    QStringList favoriteTeamIDList() const;
    QVariant activeBannerValue() const;
    QStringList revealedMatchIDList() const;

    void loadSettings();
    void setMatches(const QList<Match> &matches);
    void setStandings(const QList<GroupStanding> &standings);
    void setIsLoading(bool loading);
    void setErrorMessage(const std::optional<QString> &message);
    void setLastUpdated(const QDateTime &instant);
    void setTrayTitle(const std::optional<QString> &title);
    void setFavoriteTeamIDs(const QSet<QString> &teamIDs);
    void setActiveBanner(const std::optional<BannerState> &banner);
    void setTeamsByID(const TeamTable &teams);
    void setStadiumsByID(const StadiumTable &stadiums);
    void setAllMatches(const QList<Match> &matches);

    QCoro::Task<Result<QList<APITeam>, FetchError>> fetchTeamsIfNeeded();
    QCoro::Task<Result<QList<APIStadium>, FetchError>> fetchStadiumsIfNeeded();
    void emitAlert(BannerState::Kind kind, const Match &match);
    bool addToCalendar(const QString &fileName, const QList<Match> &matches);
    void rebuildSnapshots(const QList<Match> &matches);
    bool involvesFavorite(const Match &match) const;
    ScreenLists *lists() { return &m_lists; }
    GlassPreferences *glassObject() { return &m_glass; }
    AlertPreferences *alertsObject() { return &m_alerts; }
    MenuBarPreferences *menuBarObject() { return &m_menuBar; }
    StartAtLogin *startAtLoginObject() { return &m_startAtLogin; }
    PanelNavigation *navigationObject() { return &m_navigation; }
    struct FavoriteMatchGroups {
        QList<Match> running;
        QList<Match> coming;
        QList<Match> results;
    };
    FavoriteMatchGroups favoriteMatchGroups() const;
    void feedFavoriteLists();
    void feedGroupTables();
    void feedTeamList();

    // Observed.
    QList<Match> m_matches;
    QList<GroupStanding> m_standings;
    bool m_isLoading = false;
    std::optional<QString> m_errorMessage;
    QDateTime m_lastUpdated;
    std::optional<QString> m_trayTitle;
    QSet<QString> m_favoriteTeamIDs;
    std::optional<BannerState> m_activeBanner;
    bool m_hideScores = false;
    QSet<QString> m_revealedMatchIDs;
    TeamTable m_teamsByID;
    StadiumTable m_stadiumsByID;
    QList<Match> m_allMatches;
    KnockoutBracket m_bracket;

    // Plain.
    QList<Match> m_liveMatchesCache;
    QList<TeamSummary> m_favoriteTeamsCache;
    QSet<QDateTime> m_contestedKickoffsCache;
    ScreenLists m_lists;
    // What the fixtures list was last about: a team filter or a day. Another subject starts it afresh.
    QString m_fixturesSubject;
    int m_liveRotationIndex = 0;
    APIService *m_api;
    std::unique_ptr<SettingsStore> m_settings;
    NotificationManager m_notifier;
    std::function<QDateTime()> m_now;
    std::function<void(const QString &path)> m_openFile;
    // The parts of the state kept in objects of their own: after m_settings and m_now, which they are
    // built from, so that the glass still has its store when it writes its last values on destruction.
    GlassPreferences m_glass;
    AlertPreferences m_alerts;
    MenuBarPreferences m_menuBar;
    StartAtLogin m_startAtLogin;
    PanelNavigation m_navigation;
    std::unique_ptr<QTimer> m_pollingTimer;
    bool m_isFetching = false;
    QHash<QString, MatchSnapshot> m_matchSnapshots;
    bool m_hasSeededSnapshots = false;
    QTimer m_bannerTimer;
    const QStringList m_allGroups;
};
