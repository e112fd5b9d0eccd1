#include "StatusIcon.h"

#include <QPainter>
#include <QSvgRenderer>

QString statusIconName()
{
    return QStringLiteral("pitchlark-symbolic");
}

QImage renderStatusIcon(int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(QStringLiteral(":/pitchlark/tray/pitchlark-symbolic.svg"));
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}
