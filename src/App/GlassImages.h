#pragma once

#include <QImage>
#include <QQuickImageProvider>

// The two images the glass is drawn with, made once: a grey film-grain tile, and the feathered mask
// that fades the glass towards the edges in floating-cards mode.
namespace GlassImages {

constexpr int grainSide = 140;
constexpr int maskSide = 150;
constexpr int maskCap = 20; // the nine-slice border of the mask, which keeps its soft falloff

QImage grainTile();
QImage featherMask();

} // namespace GlassImages

// Serves them to QML as image://glass/grain and image://glass/feather.
class GlassImageProvider : public QQuickImageProvider {
public:
    GlassImageProvider();
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

private:
    QImage m_grain;
    QImage m_feather;
};
