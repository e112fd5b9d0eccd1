#pragma once

#include <QImage>
#include <QString>

#include <array>

// The program's tray icon: a one-colour symbolic glyph drawn from the SVG compiled into this library.

inline constexpr std::array statusIconSizes{16, 22, 24, 32, 48};

// The name under which the icon is installed in the icon theme.
QString statusIconName();
// The glyph on a transparent square of size × size pixels, in QImage::Format_ARGB32.
QImage renderStatusIcon(int size);
