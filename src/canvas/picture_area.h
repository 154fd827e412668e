#pragma once

namespace orvent::canvas {

/// `PicForm`, the size of a canvas' picture; twips. Nothing here is painted, and what is seen of it each view knows
/// (`PictureWindow`).
class PictureArea {
  public:
    static constexpr float kStartWidth = 17000;
    static constexpr float kStartHeight = 13000;

    float Width() const { return width_; }
    float Height() const { return height_; }

    /// The picture never grows beyond this, 0 for no limit.
    void setLargest(float largest) { largest_ = largest; }
    void setSize(float width, float height) {
        width_ = held(width);
        height_ = held(height);
    }
    /// A width or a height as far as the picture may have it.
    float held(float size) const { return largest_ > 0 && size > largest_ ? largest_ : size; }

  private:
    float width_ = kStartWidth;
    float height_ = kStartHeight;
    float largest_ = 0;
};

}  // namespace orvent::canvas
