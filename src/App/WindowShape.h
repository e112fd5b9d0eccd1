#pragma once

#include <QRegion>
#include <QSize>

// A rectangle of size with its corners rounded at radius, as whole pixels: a window shape for displays
// that cannot blend a window's edges into what lies behind it.
QRegion roundedRegion(const QSize &size, int radius);
