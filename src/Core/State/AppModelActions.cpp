#include "AppModel.h"

#include "SettingsKeys.h"

#include <QPointer>

void AppModel::open(const PanelRoute &route)
{
    setPoppingRoute(std::nullopt);
    setDetailStack(m_detailStack + QList{route});
}

void AppModel::back()
{
    if (m_detailStack.isEmpty())
        return;
    const PanelRoute popped = m_detailStack.constLast();
    setPoppingRoute(popped);
    setDetailStack(m_detailStack.first(m_detailStack.size() - 1));
    // The popped screen stays renderable while it slides out, unless another back or open took over.
    QTimer::singleShot(poppingRouteLifetime, this, [self = QPointer(this), popped] {
        if (self && self->m_poppingRoute == popped)
            self->setPoppingRoute(std::nullopt);
    });
}

void AppModel::showTeamFixtures(const QString &teamID)
{
    setSelectedTeamFilterIDText(teamID);
    applySelectedDateFilter();
    setSectionName(QStringLiteral("fixtures"));
    while (!m_detailStack.isEmpty())
        back();
}

QList<PanelRoute> AppModel::renderedRoutes() const
{
    if (m_poppingRoute && !m_detailStack.contains(*m_poppingRoute))
        return m_detailStack + QList{*m_poppingRoute};
    return m_detailStack;
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
