#pragma once

namespace orvent::canvas {

/// A rectangle that a canvas shows above its graph while a gesture is under way; twips on the picture.
struct MarkerBox {
    float Left = 0;
    float Top = 0;
    float Width = 15;
    float Height = 15;
    bool Visible = false;
    int Tag = 0;  ///< `ResizeLabel`: the zone in use
};

}  // namespace orvent::canvas
