#include "SystemTrayFallbackItem.h"

#include "StatusIcon.h"
#include "TrayMenu.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int scoreIconSize = 64;

// A square icon cannot hold the flags, so it shows the score alone ("2–1"), the piece of the title
// around the en dash; a title without one is drawn whole.
QString scorePiece(const QString &title)
{
    const QStringList pieces = title.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &piece : pieces) {
        if (piece.contains(QChar(0x2013)))
            return piece;
    }
    return title;
}

QIcon scoreIcon(const QString &title)
{
    const QString text = scorePiece(title);
    QImage image(scoreIconSize, scoreIconSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);

    QFont font;
    font.setBold(true);
    font.setPixelSize(scoreIconSize / 2);
    const QFontMetricsF metrics(font);
    const qreal scale = std::min(1.0, (scoreIconSize - 4) / std::max(1.0, metrics.horizontalAdvance(text)));
    font.setPixelSize(std::max(8, int(font.pixelSize() * scale)));

    QPainterPath path;
    path.addText(0, 0, font, text);
    const QRectF bounds = path.boundingRect();
    path.translate(QPointF(scoreIconSize, scoreIconSize) / 2 - bounds.center());

    // Light text with a dark rim reads on both light and dark trays.
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(path, QPen(QColor(0, 0, 0, 160), 3));
    painter.fillPath(path, Qt::white);
    painter.end();
    return QIcon(QPixmap::fromImage(image));
}

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
    m_icon.setIcon(m_title.isEmpty() ? plainIcon() : scoreIcon(m_title));
    updateToolTip();
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
