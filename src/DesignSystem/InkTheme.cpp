#include "InkTheme.h"

#include <algorithm>

namespace {
QColor hsb(double hue, double saturation, double brightness)
{
    return QColor::fromHsvF(float(hue), float(saturation), float(brightness));
}
} // namespace

InkTheme &InkTheme::shared()
{
    static InkTheme theme;
    return theme;
}

void InkTheme::apply(double hue, double strength)
{
    m_palette.accent = hsb(hue, 0.85, 0.66);
    if (strength <= neutralStrength) {
        const InkPalette neutral = InkPalette::neutral();
        m_palette.primary = neutral.primary;
        m_palette.secondary = neutral.secondary;
        m_palette.tertiary = neutral.tertiary;
        m_palette.faint = neutral.faint;
        return;
    }
    const double saturation = std::min(strength * 1.15, maximumSaturation);
    m_palette.primary = hsb(hue, saturation, 0.17);
    m_palette.secondary = hsb(hue, saturation * 0.72, 0.40);
    m_palette.tertiary = hsb(hue, saturation * 0.55, 0.54);
    m_palette.faint = hsb(hue, saturation * 0.42, 0.66);
}
