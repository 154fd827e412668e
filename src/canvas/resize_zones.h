#pragma once

#include <cstdint>

namespace orvent::canvas {

/// A place of a node's box where a drag resizes it: which sides follow the pointer.
struct ResizeZone {
    int number;  ///< 1 to 8; 0 where a drag changes nothing
    std::int16_t MousePointer;
    bool left, top, right, bottom;
};

/// The zone at `x`, `y` inside a box; the border is 100 twips wide. In a small box the lower right corner wins.
const ResizeZone& resizeZoneAt(float x, float y, float width, float height);

/// The zone of that number.
const ResizeZone& resizeZone(int number);

}  // namespace orvent::canvas
