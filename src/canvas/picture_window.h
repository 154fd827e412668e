#pragma once

#include "canvas/picture_area.h"
#include "canvas/point.h"

namespace orvent::canvas {

/// A scroll bar of a view; twips.
struct ScrollBar {
    float Value = 0;
    float Max = 0;  ///< at most 32767, so that a larger picture cannot be scrolled to its end
    float SmallChange = 0;
    float LargeChange = 0;
    float Length = 0;
};

/// What one view shows of a picture: the size of its window and how far that is scrolled; twips. `Left` and `Top` are
/// where the picture lies in the window. Several windows may lie over one picture.
class PictureWindow {
  public:
    static constexpr float kStep = 25;  ///< scrolling and growing while something is dragged
    static constexpr float kBarThickness = 255;

    /// The picture outlives its window.
    explicit PictureWindow(PictureArea& picture) : picture_(picture) {}

    float Left() const { return -horizontal_.bar.Value; }
    float Top() const { return -vertical_.bar.Value; }
    const ScrollBar& ScrollBarHor() const { return horizontal_.bar; }
    const ScrollBar& ScrollBarVer() const { return vertical_.bar; }
    /// The upper left corner of what the view shows. The bars end at their `Max`, a view may reach beyond.
    Point seen() const { return {horizontal_.seen, vertical_.seen}; }

    /// The middle of what the view shows.
    Point middle() const { return {horizontal_.seen + horizontal_.length / 2, vertical_.seen + vertical_.length / 2}; }

    /// The resize step of the window: `width`, `height` are its inner size with the bars.
    void resize(float width, float height);

    /// The picture has another size: the bars follow.
    void settle();

    /// The view was scrolled; beyond its range a bar stays at its end.
    void scrollTo(float horizontal, float vertical);

    /// Something `width` wide and `height` high is dragged at a place of the picture: near a border of what is seen it
    /// scrolls by one step; where it cannot, to the right and downwards, the picture grows by one. True when it grew.
    bool dragOver(Point at, float width, float height);

    /// The corner element between the bars was dragged by that distance. The picture stays at least as large as what is
    /// seen of it; the bars go to their ends.
    void dragCorner(float dx, float dy);

  private:
    /// One direction of the window.
    struct Axis {
        float length = 0;  ///< inner size of the window
        ScrollBar bar;
        float seen = 0;  ///< where the view really is
    };

    static void settle(Axis& axis, float size);
    static void scroll(Axis& axis, float to);
    static void toEnd(Axis& axis, float size);
    // What is dragged in one direction; they give the size of the picture then.
    float dragOver(Axis& axis, float size, float at, float length) const;
    float dragCorner(Axis& axis, float size, float distance) const;

    PictureArea& picture_;
    Axis horizontal_, vertical_;
};

}  // namespace orvent::canvas
