#include "canvas/resize_zones.h"

#include <array>

namespace orvent::canvas {

namespace {

constexpr float kBorder = 100;

// The first zone whose sides are all near the pointer decides; the last one is always met.
constexpr std::array<ResizeZone, 9> kZones = {{
    // number, pointer, left, top, right, bottom
    {7, 8, false, false, true, true},
    {1, 8, true, true, false, false},
    {3, 6, true, false, false, true},
    {5, 6, false, true, true, false},
    {4, 9, false, false, true, false},
    {2, 9, true, false, false, false},
    {6, 7, false, false, false, true},
    {8, 7, false, true, false, false},
    {0, 0, false, false, false, false},
}};

}  // namespace

const ResizeZone& resizeZoneAt(float x, float y, float width, float height) {
    for (const ResizeZone& zone : kZones) {
        if ((!zone.left || x < kBorder) && (!zone.top || y < kBorder) && (!zone.right || x > width - kBorder) &&
            (!zone.bottom || y > height - kBorder)) {
            return zone;
        }
    }
    return kZones.back();
}

const ResizeZone& resizeZone(int number) {
    for (const ResizeZone& zone : kZones) {
        if (zone.number == number) {
            return zone;
        }
    }
    return kZones.back();
}

}  // namespace orvent::canvas
