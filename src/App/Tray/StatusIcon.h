#pragma once

#include <QImage>
#include <QString>

#include <array>

// The program's tray icon: the symbolic glyph installed in the icon theme, which hosts recolour to their
// panel's text colour, and the same glyph as pixels for hosts that cannot load it by name.

inline constexpr std::array statusIconSizes{16, 22, 24, 32, 48};

// The symbolic icon's name in the icon theme.
QString statusIconName();
// The glyph on a transparent square of size × size pixels, in QImage::Format_ARGB32, in one mid-tone
// that stays legible on light and dark panels alike.
QImage renderStatusIcon(int size);
