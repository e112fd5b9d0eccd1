#include "WindowShape.h"

#include <cmath>

QRegion roundedRegion(const QSize &size, int radius)
{
    radius = std::min({radius, size.width() / 2, size.height() / 2});
    QRegion region(0, radius, size.width(), size.height() - 2 * radius);
    // One row of pixels at a time in the top and bottom bands, each as wide as the arc at its middle.
    for (int row = 0; row < radius; ++row) {
        const double dy = radius - row - 0.5;
        const int inset = int(std::lround(radius - std::sqrt(double(radius) * radius - dy * dy)));
        const int width = size.width() - 2 * inset;
        region += QRect(inset, row, width, 1);
        region += QRect(inset, size.height() - 1 - row, width, 1);
    }
    return region;
}
