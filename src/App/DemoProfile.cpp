#include "DemoProfile.h"

#include "FeedServer.h"
#include "QuitOnTermination.h"
#include "State/AppEnums.h"
#include "State/SettingsKeys.h"
#include "State/SettingsStore.h"

#include <QCoreApplication>
#include <QDir>

#include <cerrno>
#include <csignal>

namespace {

// Profiles are named "pitchlark-demo-<pid>-XXXXXX" in the temporary folder.
const QString namePrefix = QStringLiteral("pitchlark-demo-");

// Removes the profiles in folder whose process has gone: runs that were killed outright.
void removeStaleProfiles(const QString &folder)
{
    const QDir temporary(folder);
    for (const QString &name :
         temporary.entryList({namePrefix + QStringLiteral("*")}, QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool isNumber = false;
        const qint64 pid = name.sliced(namePrefix.size()).section(u'-', 0, 0).toLongLong(&isNumber);
        if (!isNumber || pid <= 0)
            continue;
        if (::kill(pid_t(pid), 0) == -1 && errno == ESRCH)
            QDir(temporary.filePath(name)).removeRecursively();
    }
}

} // namespace

DemoProfile::DemoProfile() = default;
DemoProfile::~DemoProfile() = default;

bool DemoProfile::activate()
{
    removeStaleProfiles(QDir::tempPath());
    m_profile = std::make_unique<QTemporaryDir>(QDir::tempPath() + u'/' + namePrefix +
                                                QString::number(QCoreApplication::applicationPid()) +
                                                QStringLiteral("-XXXXXX"));
    if (!m_profile->isValid())
        return false;
    m_quitOnTermination = std::make_unique<QuitOnTermination>();
    // Snapshots ask for a later moment of the same evening through TIDEWELL_DEMO_AT (ISO 8601).
    QDateTime from = QDateTime::fromString(qEnvironmentVariable("TIDEWELL_DEMO_AT"), Qt::ISODate);
    if (!from.isValid())
        from = start;
    m_feed = std::make_unique<FeedServer>(Tournament::bundled(), TournamentClock::running(from, speed));
    const quint16 port = m_feed->listen();
    if (port == 0)
        return false;
    qputenv("XDG_CONFIG_HOME", m_profile->filePath(QStringLiteral("config")).toUtf8());
    qputenv("XDG_CACHE_HOME", m_profile->filePath(QStringLiteral("cache")).toUtf8());
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
