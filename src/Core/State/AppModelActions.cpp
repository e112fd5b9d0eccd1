#include "AppModel.h"

#include "SettingsKeys.h"

void AppModel::showTeamFixtures(const QString &teamID)
{
    m_navigation.setSelectedTeamFilterID(teamID);
    applySelectedDateFilter();
    m_navigation.setSection(Section::fixtures);
    while (!m_navigation.detailStack().isEmpty())
        m_navigation.back();
}

void AppModel::toggleFavorite(const QString &teamID)
{
    if (!canFollow(teamID))
        return;
    QSet<QString> favorites = m_favoriteTeamIDs;
    if (!favorites.remove(teamID))
        favorites.insert(teamID);
    setFavoriteTeamIDs(favorites);
    m_settings->set(SettingsKeys::favoriteTeamIDs, favoriteTeamIDList());
    rebuildGlobalCaches();
    applySelectedDateFilter();
}
