#pragma once

#include "InkPalette.h"

// The current inks, re-tinted by the user's glass hue and strength.
class InkTheme {
public:
    // Text inks with less tint than this are plain grey; the accent follows the hue regardless.
    static constexpr double neutralStrength = 0.04;
    static constexpr double maximumSaturation = 0.72;

    static InkTheme &shared();

    const InkPalette &palette() const { return m_palette; }

    // hue and strength in 0...1.
    void apply(double hue, double strength);

private:
    InkPalette m_palette;
};
