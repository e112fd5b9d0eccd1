#include "ScoreIcon.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QRegularExpression>

QString scorePiece(const QString &title)
{
    const QStringList pieces = title.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &piece : pieces) {
        if (piece.contains(QChar(0x2013)))
            return piece;
    }
    // A title that hides its score ("🇵🇦 v ENG · 31'") gives the icon the clock, which needs no spoiler;
    // added time keeps its minute and a plus ("45'+2'" as "45+"), which a 22 px square can still hold.
    const qsizetype clock = title.lastIndexOf(QStringLiteral(" \u00b7 "));
    if (clock < 0)
        return title;
    static const QRegularExpression addedTime(QStringLiteral("^(\\d+)'\\+\\d+'?$"));
    QString piece = title.mid(clock + 3);
    return piece.replace(addedTime, QStringLiteral("\\1+"));
}

QImage renderScoreIcon(const QString &title, int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const QString text = scorePiece(title);
    const qreal inset = std::max(1.0, size / 16.0);
    const QRectF badge(inset / 2, size * 0.12, size - inset, size * 0.76);

    // As large as the badge allows: at 22 px the digits come out about 11 px high.
    QFont font;
    font.setBold(true);
    font.setPixelSize(std::max(6, int(badge.height() * 0.86)));
    const qreal room = badge.width() - inset;
    const qreal width = QFontMetricsF(font).horizontalAdvance(text);
    if (width > room)
        font.setPixelSize(std::max(6, int(font.pixelSize() * room / width)));
    QPainterPath glyphs;
    glyphs.addText(0, 0, font, text);
    glyphs.translate(badge.center() - glyphs.boundingRect().center());

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x14, 0x6c, 0x36));
    painter.drawRoundedRect(badge, badge.height() * 0.3, badge.height() * 0.3);
    painter.fillPath(glyphs, Qt::white);
    return image;
}
