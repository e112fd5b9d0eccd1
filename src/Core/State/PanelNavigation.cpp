#include "PanelNavigation.h"

#include <QPointer>
#include <QTimer>

PanelNavigation::PanelNavigation(const QString &selectedDate, QObject *parent)
    : QObject(parent), m_selectedDate(selectedDate)
{}

void PanelNavigation::setSection(Section section)
{
    if (section == m_section)
        return;
    m_section = section;
    emit sectionChanged();
}

void PanelNavigation::setSectionName(const QString &name)
{
    if (const auto section = sectionFromRawValue(name))
        setSection(*section);
}

void PanelNavigation::setSelectedDate(const QString &dateKey)
{
    if (dateKey == m_selectedDate)
        return;
    m_selectedDate = dateKey;
    emit selectedDateChanged();
}

void PanelNavigation::setSelectedGroup(const QString &group)
{
    if (group == m_selectedGroup)
        return;
    m_selectedGroup = group;
    emit selectedGroupChanged();
}

void PanelNavigation::setShowsBracket(bool shows)
{
    if (shows == m_showsBracket)
        return;
    m_showsBracket = shows;
    emit showsBracketChanged();
}

void PanelNavigation::setTeamSearchText(const QString &text)
{
    if (text == m_teamSearchText)
        return;
    m_teamSearchText = text;
    emit teamSearchTextChanged();
}

void PanelNavigation::setSelectedTeamFilterID(const std::optional<QString> &teamID)
{
    if (teamID == m_selectedTeamFilterID)
        return;
    m_selectedTeamFilterID = teamID;
    emit selectedTeamFilterIDChanged();
}

void PanelNavigation::setSelectedTeamFilterIDText(const QString &teamID)
{
    setSelectedTeamFilterID(teamID.isEmpty() ? std::nullopt : std::optional(teamID));
}

void PanelNavigation::setDetailStack(const QList<PanelRoute> &stack)
{
    if (stack == m_detailStack)
        return;
    m_detailStack = stack;
    emit detailStackChanged();
    emit renderedRoutesChanged();
}

void PanelNavigation::setPoppingRoute(const std::optional<PanelRoute> &route)
{
    if (route == m_poppingRoute)
        return;
    m_poppingRoute = route;
    emit poppingRouteChanged();
    emit renderedRoutesChanged();
}

QVariant PanelNavigation::poppingRouteValue() const
{
    return m_poppingRoute ? QVariant::fromValue(*m_poppingRoute) : QVariant();
}

void PanelNavigation::open(const PanelRoute &route)
{
    setPoppingRoute(std::nullopt);
    setDetailStack(m_detailStack + QList{route});
}

void PanelNavigation::back()
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

QList<PanelRoute> PanelNavigation::renderedRoutes() const
{
    if (m_poppingRoute && !m_detailStack.contains(*m_poppingRoute))
        return m_detailStack + QList{*m_poppingRoute};
    return m_detailStack;
}
