#pragma once

#include <QColor>

// Signal colours that never take the user's tint.
namespace Theme {
inline const QColor liveRed = QColor::fromRgbF(0.93f, 0.21f, 0.27f);
inline const QColor qualGreen = QColor::fromRgbF(0.16f, 0.63f, 0.36f);
inline const QColor playoffAmber = QColor::fromRgbF(0.96f, 0.62f, 0.1f);
inline const QColor cardStrokeTop = QColor::fromRgbF(1.0f, 1.0f, 1.0f, 0.72f);
inline const QColor cardStrokeBottom = QColor::fromRgbF(1.0f, 1.0f, 1.0f, 0.16f);
} // namespace Theme
