#include "SystemTrayFallbackItem.h"

#include "ScoreIcon.h"
#include "StatusIcon.h"
#include "TrayMenu.h"

namespace {

constexpr int scoreIconSize = 64;

QIcon plainIcon()
{
    QIcon icon;
    for (int size : statusIconSizes)
        icon.addPixmap(QPixmap::fromImage(renderStatusIcon(size)));
    return icon;
}

} // namespace

SystemTrayFallbackItem::SystemTrayFallbackItem(QObject *parent) : TrayItem(parent), m_icon(plainIcon())
{
    for (const TrayMenuEntry &entry : trayMenuEntries()) {
        if (entry.isSeparator()) {
            m_menu.addSeparator();
            continue;
        }
        QAction *action = m_menu.addAction(entry.label);
        if (entry.ticksWhenScoresHidden) {
            action->setCheckable(true);
            connect(this, &TrayItem::scoresHiddenChanged, action,
                    [this, action] { action->setChecked(scoresHidden()); });
        }
        if (!entry.key.isEmpty())
            action->setShortcut(QKeySequence(QStringLiteral("Ctrl+") + entry.key.toUpper()));
        connect(action, &QAction::triggered, this,
                [this, action = *entry.action] { runTrayAction(*this, action, iconCentre()); });
    }
    m_icon.setParent(this);
    m_icon.setContextMenu(&m_menu);
    connect(&m_icon, &QSystemTrayIcon::activated, this, &SystemTrayFallbackItem::onActivated);
    updateToolTip();
    m_icon.show();
}

void SystemTrayFallbackItem::setTitle(const QString &title)
{
    if (title == m_title)
        return;
    m_title = title;
    updateIcon();
    updateToolTip();
}

void SystemTrayFallbackItem::setScoreInIcon(bool drawn)
{
    if (drawn == m_scoreInIcon)
        return;
    m_scoreInIcon = drawn;
    updateIcon();
}

void SystemTrayFallbackItem::updateIcon()
{
    if (m_scoreInIcon && !m_title.isEmpty())
        m_icon.setIcon(QIcon(QPixmap::fromImage(renderScoreIcon(m_title, scoreIconSize))));
    else
        m_icon.setIcon(plainIcon());
}

void SystemTrayFallbackItem::setLiveMatches(const QStringList &lines)
{
    m_liveMatches = lines;
    updateToolTip();
}

void SystemTrayFallbackItem::onActivated(QSystemTrayIcon::ActivationReason reason)
{
    if (reason == QSystemTrayIcon::Trigger)
        runTrayAction(*this, TrayAction::Open, iconCentre());
    else if (reason == QSystemTrayIcon::MiddleClick)
        runTrayAction(*this, TrayAction::Refresh);
}

void SystemTrayFallbackItem::updateToolTip()
{
    QStringList lines{m_title.isEmpty() ? QStringLiteral("Pitchlark") : m_title};
    lines += m_liveMatches;
    // Shown as rich text when it looks like markup; escaped, a name shows as written.
    m_icon.setToolTip(lines.join(QLatin1Char('\n')).toHtmlEscaped());
}

QPoint SystemTrayFallbackItem::iconCentre() const
{
    const QRect geometry = m_icon.geometry();
    return geometry.isValid() ? geometry.center() : QPoint();
}
