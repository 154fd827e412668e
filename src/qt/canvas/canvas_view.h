#pragma once

#include <QAbstractScrollArea>
#include <optional>

#include "canvas/pointer_event.h"
#include "canvas/view_state.h"
#include "qt/canvas/picture_index.h"
#include "qt/canvas/picture_painter.h"
#include "qt/canvas/picture_scroller.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

/// Shows a canvas: one painted viewport with scroll bars. It reads the canvas at each painting and keeps only an index
/// of where the items lie; the canvas tells it of changes. The canvas and the theme must outlive it. Several views may
/// show one canvas.
///
/// Ctrl and the wheel change the scale at the pointer, the wheel scrolls, and the middle button drags the picture.
class CanvasViewWidget : public QAbstractScrollArea, public canvas::CanvasListener {
    Q_OBJECT

  public:
    static constexpr double kLeastScale = PictureScroller::kLeastScale;
    static constexpr double kLargestScale = PictureScroller::kLargestScale;

    CanvasViewWidget(canvas::Canvas& canvas, const Theme& theme, QWidget* parent = nullptr);
    ~CanvasViewWidget() override;

    /// Pixels of the screen for 15 twips of the picture.
    double scale() const { return scroller_.scale(); }
    void setScale(double scale) { scroller_.setScale(scale); }
    void setScale(double scale, QPointF anchor) { scroller_.setScale(scale, anchor); }
    /// One step larger (1) or smaller (-1).
    void stepScale(double steps);
    void fit() { scroller_.fit(); }
    void reveal(const canvas::LabelsD& node) { scroller_.reveal(node); }
    void present(const canvas::LabelsD& node) { scroller_.present(node); }
    /// Scrolls so that the place is in the middle, as far as the picture reaches.
    void centreOn(canvas::Point place) { scroller_.centreOn(place); }
    Transform transform() const { return scroller_.transform(); }

    /// Shades in which the nodes are shown, or nothing.
    void setTints(canvas::Tints* tints) { painter_.setTints(tints); }
    /// Notes at the nodes, as long as they are shown, or none for nothing.
    void setNotes(const canvas::NodeNotes* notes) { painter_.setNotes(notes); }
    canvas::Tints* tints() const { return painter_.tints(); }

    const canvas::Canvas& shown() const { return canvas_; }
    canvas::CanvasSubscription listen(canvas::CanvasListener& listener) { return canvas_.listen(listener); }

    /// The topmost node at a place, or nothing.
    const canvas::LabelsD* nodeAt(canvas::Point place) const { return index_.nodeAt(place); }
    /// What lies topmost at a place of the viewport. Handles can be hit also while they are not painted.
    canvas::Hit hitAt(QPointF pixel) const;

    /// What the view has of its own.
    const canvas::ViewState& state() const { return state_; }

    void nodeChanged(const canvas::LabelsD& node) override;
    void nodeRemoved(const canvas::LabelsD& node) override;
    void edgeChanged(const canvas::LinesD& edge) override;
    void edgeRemoved(const canvas::LinesD& edge) override;
    void manyChanged() override { forgetIndex(); }
    void pictureChanged() override;
    void lightChanged() override { painter_.repaintAll(); }

  Q_SIGNALS:
    void scaleChanged();
    void partChanged();  ///< another part of the picture is shown

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// The edge that is marked as what the pointer means, or none.
    void showPointedEdge(const canvas::LinesD* edge) { painter_.setPointedEdge(edge); }

    /// The view's own state has changed.
    virtual void stateChanged();

    /// The scroll bar of a comment is taken at a place of the viewport, follows the mouse, and is let go. False when
    /// there is none.
    bool takeCommentBar(QPointF pixel);
    bool dragCommentBar(QPointF pixel);
    bool dropCommentBar();

    canvas::Canvas& shownCanvas() const { return canvas_; }
    canvas::ViewState& ownState() { return state_; }
    /// Neither the canvas nor the state is listened to any more.
    void stopListening() {
        subscription_.end();
        state_.changed = nullptr;
    }
    const Theme& theme() const { return theme_; }

  private:
    template <class Item>
    void itemChanged(const Item& item);
    template <class Item>
    void itemRemoved(const Item& item);
    bool takesChange();
    void forgetIndex();
    void settleSoon();
    void settle();
    const canvas::LabelsD* commentBarAt(QPointF pixel) const;
    bool scrollComment(const canvas::LabelsD& node, int first);

    canvas::Canvas& canvas_;
    canvas::CanvasSubscription subscription_;
    const Theme& theme_;
    canvas::ViewState state_;
    PictureIndex index_;
    PictureScroller scroller_;
    PicturePainter painter_;
    bool settling_ = false;
    std::optional<QPoint> panFrom_;
    canvas::NodeNumber scrolledComment_ = canvas::kNoNode;  ///< whose bar is held
};

}  // namespace orvent::qt
