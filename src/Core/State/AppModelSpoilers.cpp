#include "AppModel.h"

#include "SettingsKeys.h"

#include <algorithm>

void AppModel::setHideScores(bool hidden)
{
    m_hideScores = hidden;
    emit hideScoresChanged();
    m_settings->set(SettingsKeys::hideScores, hidden);
    rebuildGlobalCaches();
}

bool AppModel::isScoreHidden(const QString &matchID) const
{
    return m_hideScores && !m_revealedMatchIDs.contains(matchID);
}

void AppModel::revealScore(const QString &matchID)
{
    m_revealedMatchIDs.insert(matchID);
    emit revealedMatchIDsChanged();
    rebuildGlobalCaches();
}

void AppModel::concealScore(const QString &matchID)
{
    m_revealedMatchIDs.remove(matchID);
    emit revealedMatchIDsChanged();
    rebuildGlobalCaches();
}

QStringList AppModel::revealedMatchIDList() const
{
    QStringList ids(m_revealedMatchIDs.cbegin(), m_revealedMatchIDs.cend());
    std::sort(ids.begin(), ids.end());
    return ids;
}

QString AppModel::trayTitleFor(const Match &match) const
{
    return isScoreHidden(match.id) ? match.spoilerFreeTitle() : match.trayMenuBarTitle();
}

QString AppModel::trayLineFor(const Match &match) const
{
    // The spoiler-free title carries the clock already.
    return isScoreHidden(match.id)
               ? match.spoilerFreeTitle()
               : match.trayMenuBarTitle() + QStringLiteral("  ") + match.compactStatusLabel();
}
