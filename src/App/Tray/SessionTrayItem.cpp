#include "SessionTrayItem.h"

#include "SystemTrayFallbackItem.h"

#include <QApplication>
#include <QTextStream>

SessionTrayItem::SessionTrayItem(QObject *parent) : TrayItem(parent)
{
    relay(m_item);
    connect(&m_item, &TrayItem::hostChanged, this, &SessionTrayItem::followHost);
    connect(this, &TrayItem::scoresHiddenChanged, this, [this] {
        m_item.setScoresHidden(scoresHidden());
        if (m_fallback)
            m_fallback->setScoresHidden(scoresHidden());
    });
    followHost();
}

SessionTrayItem::~SessionTrayItem() = default;

void SessionTrayItem::relay(TrayItem &item)
{
    connect(&item, &TrayItem::activated, this, &TrayItem::activated);
    connect(&item, &TrayItem::refreshRequested, this, &TrayItem::refreshRequested);
    connect(&item, &TrayItem::hideScoresToggled, this, &TrayItem::hideScoresToggled);
    connect(&item, &TrayItem::quitRequested, this, &TrayItem::quitRequested);
}

void SessionTrayItem::followHost()
{
    if (m_item.hasHost()) {
        // A StatusNotifierItem host also proxies XEmbed icons: one icon is enough.
        m_fallback.reset();
    } else if (!m_fallback && qobject_cast<QApplication *>(QCoreApplication::instance()) &&
               QGuiApplication::platformName() == QLatin1StringView("xcb")) {
        m_fallback = std::make_unique<SystemTrayFallbackItem>();
        relay(*m_fallback);
        m_fallback->setScoreInIcon(m_scoreInIcon);
        m_fallback->setScoresHidden(scoresHidden());
        m_fallback->setTitle(m_title);
        m_fallback->setLiveMatches(m_liveMatches);
    }
    if (!m_item.hasHost() && !QSystemTrayIcon::isSystemTrayAvailable() && !m_saidNoTray) {
        m_saidNoTray = true;
        QTextStream(stderr) << "Pitchlark: no system tray was found; it keeps running, and "
                               "`pitchlark --toggle` opens its panel.\n";
    }
    emit hostChanged();
}

void SessionTrayItem::setTitle(const QString &title)
{
    m_title = title;
    m_item.setTitle(title);
    if (m_fallback)
        m_fallback->setTitle(title);
}

void SessionTrayItem::setLiveMatches(const QStringList &lines)
{
    m_liveMatches = lines;
    m_item.setLiveMatches(lines);
    if (m_fallback)
        m_fallback->setLiveMatches(lines);
}

void SessionTrayItem::setScoreInIcon(bool drawn)
{
    m_scoreInIcon = drawn;
    m_item.setScoreInIcon(drawn);
    if (m_fallback)
        m_fallback->setScoreInIcon(drawn);
}
