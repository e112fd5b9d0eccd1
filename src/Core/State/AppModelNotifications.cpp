#include "AppModel.h"

#include <QUuid>

namespace {

QString freshIdentity()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

int totalGoals(std::optional<int> home, std::optional<int> away)
{
    return home.value_or(0) + away.value_or(0);
}

} // namespace

void AppModel::processNotificationEvents(const QList<Match> &matches)
{
    if (m_alerts.notificationsEnabled() && m_hasSeededSnapshots && !matches.isEmpty()) {
        for (const Match &match : matches) {
            if (!involvesFavorite(match))
                continue;
            // A match new to the feed never alerts on its first appearance.
            const auto previous = m_matchSnapshots.constFind(match.id);
            if (previous == m_matchSnapshots.constEnd())
                continue;
            if (m_alerts.notifyMatchStart() && previous->status == MatchStatus::scheduled &&
                isLive(match.status))
                emitAlert(BannerState::Kind::kickoff, match);
            // One alert however many goals came in since the last fetch; a corrected score says nothing.
            if (m_alerts.notifyGoals() && isLive(match.status) &&
                totalGoals(previous->home, previous->away) < totalGoals(match.homeScore, match.awayScore))
                emitAlert(BannerState::Kind::goal, match);
            if (m_alerts.notifyFullTime() && previous->status != MatchStatus::finished &&
                match.status == MatchStatus::finished)
                emitAlert(BannerState::Kind::fullTime, match);
        }
    }
    rebuildSnapshots(matches);
}

void AppModel::rebuildSnapshots(const QList<Match> &matches)
{
    QHash<QString, MatchSnapshot> snapshots;
    snapshots.reserve(matches.size());
    for (const Match &match : matches)
        snapshots.insert(match.id, MatchSnapshot{match.status, match.homeScore, match.awayScore});
    m_matchSnapshots = snapshots;
    m_hasSeededSnapshots = true;
}

void AppModel::emitAlert(BannerState::Kind kind, const Match &match)
{
    QString title;
    QString body;
    const bool scoreHidden = isScoreHidden(match.id);
    switch (kind) {
    case BannerState::Kind::kickoff:
        title = QStringLiteral("Kick-off");
        body = match.homeTeam + QStringLiteral(" vs ") + match.awayTeam + QStringLiteral(" is underway.");
        break;
    case BannerState::Kind::goal:
        title = QStringLiteral("Goal!");
        body = scoreHidden ? QStringLiteral("A goal in ") + match.fixtureName()
                           : match.homeTeam + u' ' + match.scorelineDisplay() + u' ' + match.awayTeam;
        break;
    case BannerState::Kind::fullTime:
        title = QStringLiteral("Full-time");
        body = scoreHidden ? QStringLiteral("Full time: ") + match.fixtureName()
                           : match.homeTeam + u' ' + match.scorelineDisplay() + u' ' + match.awayTeam;
        break;
    }
    m_notifier.add(MatchNotification{match.id, kind, title, body});
    emit alertRaised(kind, title, body);
    if (m_alerts.inAppBanners())
        presentBanner(BannerState{freshIdentity(), title, body, kind});
}

void AppModel::showMatchFromNotification(const QString &matchID)
{
    m_navigation.open(PanelRoute::match(matchID));
    emit panelRequested();
}

void AppModel::presentBanner(const BannerState &banner)
{
    setActiveBanner(banner);
    // A newer banner restarts the wait; the older one's wait is simply dropped.
    m_bannerTimer.disconnect();
    connect(&m_bannerTimer, &QTimer::timeout, this, [this, id = banner.id] {
        if (m_activeBanner && m_activeBanner->id == id)
            dismissBanner();
    });
    m_bannerTimer.start();
}

void AppModel::dismissBanner()
{
    setActiveBanner(std::nullopt);
}
