#pragma once

namespace orvent::canvas {

/// A rectangle on a canvas' picture area; twips.
struct Box {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;

    float right() const { return Left + Width; }
    float bottom() const { return Top + Height; }

    bool operator==(const Box&) const = default;
};

}  // namespace orvent::canvas
