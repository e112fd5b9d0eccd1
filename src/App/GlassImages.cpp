#include "GlassImages.h"

#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// A separable Gaussian blur of the alpha channel, enough for a small image made once, in one colour.
QImage blurredAlpha(const QImage &source, double radius, QColor colour)
{
    const int width = source.width();
    const int height = source.height();
    const int reach = int(std::ceil(radius * 3));
    std::vector<double> kernel(size_t(2 * reach + 1));
    double sum = 0;
    for (int offset = -reach; offset <= reach; ++offset)
        sum += kernel[size_t(offset + reach)] = std::exp(-(offset * offset) / (2 * radius * radius));
    for (double &weight : kernel)
        weight /= sum;

    std::vector<double> alpha(size_t(width * height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            alpha[size_t(y * width + x)] = qAlpha(source.pixel(x, y));
    }
    const auto pass = [&](bool horizontal) {
        std::vector<double> out(alpha.size());
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                double value = 0;
                for (int offset = -reach; offset <= reach; ++offset) {
                    const int sx = horizontal ? std::clamp(x + offset, 0, width - 1) : x;
                    const int sy = horizontal ? y : std::clamp(y + offset, 0, height - 1);
                    value += kernel[size_t(offset + reach)] * alpha[size_t(sy * width + sx)];
                }
                out[size_t(y * width + x)] = value;
            }
        }
        alpha.swap(out);
    };
    pass(true);
    pass(false);

    QImage result(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int a = std::clamp(int(std::lround(alpha[size_t(y * width + x)])), 0, 255);
            result.setPixel(x, y, qPremultiply(qRgba(colour.red(), colour.green(), colour.blue(), a)));
        }
    }
    return result;
}

QImage softRoundedRect(int side, int inset, double cornerRadius, double blurRadius, QColor colour)
{
    QImage shape(side, side, QImage::Format_ARGB32_Premultiplied);
    shape.fill(Qt::transparent);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath rounded;
    rounded.addRoundedRect(QRectF(inset, inset, side - 2 * inset, side - 2 * inset), cornerRadius,
                           cornerRadius);
    painter.fillPath(rounded, Qt::white);
    painter.end();
    return blurredAlpha(shape, blurRadius, colour);
}

} // namespace

namespace GlassImages {

QImage grainTile()
{
    QImage tile(grainSide, grainSide, QImage::Format_RGB32);
    // A fixed seed: the grain is texture, and the same texture on every start.
    QRandomGenerator random(140);
    for (int y = 0; y < grainSide; ++y) {
        for (int x = 0; x < grainSide; ++x) {
            const int grey = int(random.bounded(256));
            tile.setPixel(x, y, qRgb(grey, grey, grey));
        }
    }
    return tile;
}

QImage featherMask()
{
    return softRoundedRect(maskSide, 7, 26, 5, Qt::white);
}

QImage cardShadow()
{
    return softRoundedRect(shadowSide, shadowSpread, 20, 6, Qt::black);
}

} // namespace GlassImages

GlassImageProvider::GlassImageProvider()
    : QQuickImageProvider(QQuickImageProvider::Image), m_grain(GlassImages::grainTile()),
      m_feather(GlassImages::featherMask()), m_shadow(GlassImages::cardShadow())
{}

QImage GlassImageProvider::requestImage(const QString &id, QSize *size, const QSize &)
{
    const QImage &image = id == QLatin1StringView("grain")    ? m_grain
                          : id == QLatin1StringView("shadow") ? m_shadow
                                                              : m_feather;
    if (size)
        *size = image.size();
    return image;
}
