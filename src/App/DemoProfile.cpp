#include "DemoProfile.h"

#include "FeedServer.h"
#include "State/AppEnums.h"
#include "State/SettingsKeys.h"
#include "State/SettingsStore.h"

DemoProfile::DemoProfile() = default;
DemoProfile::~DemoProfile() = default;

bool DemoProfile::activate()
{
    if (!m_profile.isValid())
        return false;
    // Snapshots ask for a later moment of the same evening through TIDEWELL_DEMO_AT (ISO 8601).
    QDateTime from = QDateTime::fromString(qEnvironmentVariable("TIDEWELL_DEMO_AT"), Qt::ISODate);
    if (!from.isValid())
        from = start;
    m_feed = std::make_unique<FeedServer>(Tournament::bundled(), TournamentClock::running(from, speed));
    const quint16 port = m_feed->listen();
    if (port == 0)
        return false;
    qputenv("XDG_CONFIG_HOME", m_profile.filePath(QStringLiteral("config")).toUtf8());
    qputenv("XDG_CACHE_HOME", m_profile.filePath(QStringLiteral("cache")).toUtf8());
    qputenv("WC_API_BASE_URL", QByteArray("http://127.0.0.1:") + QByteArray::number(port));

    // Follow the four teams of the two matches about to kick off, and poll as often as allowed.
    QStringList favorites;
    for (const GameFact &game : Tournament::bundled().games) {
        if (game.kickoff == instantFromDateTime(start.addSecs(10 * 60)))
            favorites << game.home.teamID << game.away.teamID;
    }
    SettingsStore settings;
    settings.set(SettingsKeys::favoriteTeamIDs, favorites);
    settings.set(SettingsKeys::notificationsEnabled, true);
    settings.set(SettingsKeys::refreshIntervalSeconds, qint64(seconds(RefreshInterval::fifteen)));
    return true;
}

QDateTime DemoProfile::now() const
{
    return m_feed->clock().now();
}
