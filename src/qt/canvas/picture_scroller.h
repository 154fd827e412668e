#pragma once

#include <QAbstractScrollArea>
#include <functional>

#include "canvas/picture_window.h"
#include "qt/canvas/picture_index.h"
#include "qt/canvas/transform.h"

namespace orvent::qt {

/// Which part of a picture a view shows, and how large: its scale and its two scroll bars, which show the picture's
/// window and move it. The bars are those of `PicForm`, but reach on to whatever lies beyond it.
class PictureScroller {
  public:
    static constexpr double kLeastScale = 0.02;
    static constexpr double kLargestScale = 8;

    /// All outlive the scroller. `scaled` is called after each change of the scale.
    PictureScroller(QAbstractScrollArea& area, const canvas::PictureArea& picture, canvas::PictureWindow& window,
                    const PictureIndex& index, std::function<void()> scaled)
        : area_(area), picture_(picture), window_(window), index_(index), scaled_(std::move(scaled)) {}

    double scale() const { return scale_; }
    /// From pixels of the viewport to twips and back.
    Transform transform() const;

    /// Changes the scale, within the two limits, and the place under `anchor` (viewport pixels) stays.
    void setScale(double scale, QPointF anchor);
    /// The same; the picture stays where it is in the middle of the viewport.
    void setScale(double scale);
    /// Shows the whole picture, at most at twice its size.
    void fit();
    /// Shows the whole picture where its captions stay readable then, otherwise the node in the middle at full size.
    void present(const canvas::LabelsD& node);
    /// Scrolls so far that the node is seen.
    void reveal(const canvas::LabelsD& node);
    void scrollBy(QPoint pixels);
    /// Brings the place into the middle of the viewport.
    void centreOn(canvas::Point place);

    /// The picture, or what lies beyond it, has another size.
    void updateBars();
    /// What is seen of the picture decides how far `PicForm` can be scrolled, and where dragging scrolls it.
    void measureWindow();
    /// The window was moved, or the picture has another size: the bars follow.
    void followWindow();
    /// The bars were moved: the window follows, unless it was the window that moved them.
    void followBars();

  private:
    QRectF pictureArea() const;

    QAbstractScrollArea& area_;
    const canvas::PictureArea& picture_;
    canvas::PictureWindow& window_;
    const PictureIndex& index_;
    std::function<void()> scaled_;
    double scale_ = 1;
    canvas::Point shownScroll_;
    canvas::Point shownSize_;
    bool following_ = false;  ///< the bars follow the window and not the user
};

}  // namespace orvent::qt
