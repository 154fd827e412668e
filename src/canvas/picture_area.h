#pragma once

#include "canvas/point.h"

namespace orvent::canvas {

/// A scroll bar of a canvas; twips.
struct ScrollBar {
    float Value = 0;
    float Max = 0;  ///< at most 32767, so that a larger picture cannot be scrolled to its end
    float SmallChange = 0;
    float LargeChange = 0;
    float Length = 0;
};

/// `PicForm`, the picture area of a canvas, and its two scroll bars; twips. `Left` and `Top` are where the picture lies
/// in its window. Nothing here is painted; the canvas' view reads it.
class PictureArea {
  public:
    static constexpr float kStartWidth = 17000;
    static constexpr float kStartHeight = 13000;
    static constexpr float kStep = 25;  ///< scrolling and growing while something is dragged
    static constexpr float kBarThickness = 255;

    float Width() const { return horizontal_.size; }
    float Height() const { return vertical_.size; }
    float Left() const { return -ScrollBarHor().Value; }
    float Top() const { return -ScrollBarVer().Value; }
    const ScrollBar& ScrollBarHor() const { return horizontal_.bar; }
    const ScrollBar& ScrollBarVer() const { return vertical_.bar; }
    /// The upper left corner of what the view shows. The bars end at their `Max`, a view may reach beyond.
    Point seen() const { return {horizontal_.seen, vertical_.seen}; }

    /// The middle of what the view shows.
    Point middle() const { return {horizontal_.seen + horizontal_.window / 2, vertical_.seen + vertical_.window / 2}; }

    /// The picture never grows beyond this, 0 for no limit.
    void setLargest(float largest) { largest_ = largest; }

    /// The resize step of the window: `width`, `height` are its inner size with the bars.
    void resizeWindow(float width, float height);

    /// The view was scrolled; beyond its range a bar stays at its end.
    void scrollTo(float horizontal, float vertical);

    /// Sets the size of the picture, and runs the resize step.
    void setSize(float width, float height);

    /// Something `width` wide and `height` high is dragged at a place of the picture: near a border of what is seen it
    /// scrolls by one step; where it cannot, to the right and downwards, the picture grows by one. True when
    /// something changed.
    bool dragOver(Point at, float width, float height);

    /// The corner element between the bars was dragged by that distance. The picture stays at least as large as what is
    /// seen of it; the bars go to their ends.
    void dragCorner(float dx, float dy);

  private:
    /// One direction of the picture.
    struct Axis {
        float size;
        float window = 0;  ///< inner size of the window
        ScrollBar bar;
        float seen = 0;  ///< where the view really is
    };

    void settle(Axis& axis) const;
    static void scroll(Axis& axis, float to);
    bool dragOver(Axis& axis, float at, float length) const;
    void dragCorner(Axis& axis, float distance) const;
    float held(float size) const;

    Axis horizontal_{kStartWidth, 0, {}, 0};
    Axis vertical_{kStartHeight, 0, {}, 0};
    float largest_ = 0;
};

}  // namespace orvent::canvas
