#pragma once

#include <cstdint>

namespace orvent::canvas {

/// At actual size. Fixed, so that stored sizes do not depend on the screen.
inline constexpr float kTwipsPerPixel = 15;

/// The settings that canvases read; sizes and distances in twips, the colour with blue in the high byte.
struct CanvasSettings {
    float ActH = 450, ActW = 1050;
    float RecH = 450, RecW = 1050;
    float ComH = 750, ComW = 1500;
    float LogH = 450, LogW = 1050;
    float WDist = 1050;    ///< zoom view: from an activity to its sub-nodes
    float HDist = 150;     ///< zoom view: vertical distance of nodes
    float Width = 1050;    ///< zoom view: width of nodes
    float Height = 225;    ///< zoom view: height of attributes and parameters
    float BigDist = 3450;  ///< zoom view: from the activity to its entities
    float BigHeight = 450;
    std::int32_t SelColor = 16744448;  ///< the mask XORed into a selected node's colour
};

}  // namespace orvent::canvas
