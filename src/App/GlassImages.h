#pragma once

#include <QImage>
#include <QQuickImageProvider>

// The images the glass is drawn with, made once: a grey film-grain tile, the feathered mask that fades
// the glass towards the edges in floating-cards mode, and the soft shadow under raised cards.
namespace GlassImages {

constexpr int grainSide = 140;
constexpr int maskSide = 150;
constexpr int maskCap = 20; // the nine-slice border of the mask, which keeps its soft falloff
constexpr int shadowSide = 96;
constexpr int shadowSpread = 24; // how far the shadow reaches past the card it lies under
constexpr int shadowCap = 44;

QImage grainTile();
QImage featherMask();
QImage cardShadow();

} // namespace GlassImages

// Serves them to QML as image://glass/grain, image://glass/feather and image://glass/shadow.
class GlassImageProvider : public QQuickImageProvider {
public:
    GlassImageProvider();
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

private:
    QImage m_grain;
    QImage m_feather;
    QImage m_shadow;
};
