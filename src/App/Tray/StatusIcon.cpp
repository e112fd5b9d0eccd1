#include "StatusIcon.h"

#include "Support/AppIdentity.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {

// A pitch green of relative luminance 0.22: at least 3:1 against both Breeze's light panel (#eff0f1)
// and its dark ones (#31363b, #2a2e32), where the usual symbolic grey reads at 1.6:1 on the light one.
constexpr QRgb glyphColour = 0xff3a9440;

} // namespace

QString statusIconName()
{
    return AppIdentity::appId() + QStringLiteral("-symbolic");
}

QImage renderStatusIcon(int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(QStringLiteral(":/pitchlark/tray/%1.svg").arg(statusIconName()));
    QPainter painter(&image);
    renderer.render(&painter);
    // The installed glyph is coloured for the host to replace; here it is only the shape.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), QColor::fromRgba(glyphColour));
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}
