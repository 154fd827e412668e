#pragma once

namespace orvent::qt {

/// Distances between the parts of a window, in pixels.
struct Spacing {
    static constexpr int margin = 14;   ///< window edge to contents
    static constexpr int gap = 8;       ///< between neighbours
    static constexpr int section = 18;  ///< between groups
    static constexpr int icon = 20;     ///< icons of tool bars
    static constexpr int radius = 5;    ///< corners of buttons and fields
};

}  // namespace orvent::qt
