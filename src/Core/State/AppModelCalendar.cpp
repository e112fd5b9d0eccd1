#include "AppModel.h"

#include "Calendar/MatchCalendar.h"

#include <QDir>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

bool AppModel::addMatchToCalendar(const QString &matchID)
{
    const auto match = std::find_if(m_allMatches.cbegin(), m_allMatches.cend(),
                                    [&matchID](const Match &candidate) { return candidate.id == matchID; });
    if (match == m_allMatches.cend())
        return false;
    return addToCalendar(QStringLiteral("match-%1.ics").arg(matchID), {*match});
}

bool AppModel::addTeamToCalendar(const QString &teamID)
{
    return addToCalendar(QStringLiteral("team-%1.ics").arg(teamID), matchesOfTeam(teamID));
}

bool AppModel::addFavoritesToCalendar()
{
    QList<Match> matches;
    std::copy_if(m_allMatches.cbegin(), m_allMatches.cend(), std::back_inserter(matches),
                 [this](const Match &match) { return involvesFavorite(match); });
    return addToCalendar(QStringLiteral("favorites.ics"), matches);
}

bool AppModel::addToCalendar(const QString &fileName, const QList<Match> &matches)
{
    if (matches.isEmpty())
        return false;
    const QString directory =
        QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + QStringLiteral("/calendar");
    // Ids come from the feed: a file name built from one must not leave the folder.
    if (fileName.contains(u'/') || !QDir().mkpath(directory))
        return false;
    QSaveFile file(directory + u'/' + fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(MatchCalendar::write(matches, now())) < 0 ||
        !file.commit())
        return false;
    m_openFile(file.fileName());
    return true;
}
