#pragma once

#include <QColor>

// The five inks every text and accent colour of the panel is drawn from.
struct InkPalette {
    QColor primary = QColor::fromRgbF(0.11f, 0.11f, 0.11f);
    QColor secondary = QColor::fromRgbF(0.34f, 0.34f, 0.34f);
    QColor tertiary = QColor::fromRgbF(0.52f, 0.52f, 0.52f);
    QColor faint = QColor::fromRgbF(0.66f, 0.66f, 0.66f);
    QColor accent = QColor::fromRgbF(0.16f, 0.46f, 1.0f);

    // The neutral palette, used wherever no tint has been applied.
    static InkPalette neutral() { return {}; }

    friend bool operator==(const InkPalette &, const InkPalette &) = default;
};
