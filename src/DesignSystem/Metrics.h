#pragma once

// Layout measures in logical pixels, shared by cards, lists and pages.
struct Metrics {
    static constexpr int cardRadius = 22;
    static constexpr int cardPadding = 14;
    static constexpr int gutter = 16;
    static constexpr int rowSpacing = 10;
};
