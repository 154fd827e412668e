#pragma once

#include <QAbstractScrollArea>
#include <optional>

#include "canvas/canvas_pointer.h"
#include "qt/canvas/grid_index.h"
#include "qt/canvas/node_painter.h"
#include "qt/canvas/paint_context.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

/// Shows a canvas: one painted viewport with scroll bars. It reads the canvas at each painting and keeps only an index
/// of where the items lie; the canvas tells it of changes. The canvas and the theme must outlive it.
///
/// The scroll bars are those of `PicForm`, but reach on to whatever lies beyond it. Ctrl and the wheel change the scale
/// at the pointer, the wheel scrolls, and the middle button drags the picture.
class CanvasViewWidget : public QAbstractScrollArea, public canvas::CanvasListener {
    Q_OBJECT

  public:
    static constexpr double kLeastScale = 0.02;
    static constexpr double kLargestScale = 8;

    CanvasViewWidget(canvas::Canvas& canvas, const Theme& theme, QWidget* parent = nullptr);
    ~CanvasViewWidget() override;

    /// Pixels of the screen for 15 twips of the picture.
    double scale() const { return scale_; }
    /// Changes the scale, within the two limits; the picture stays where it is in the middle of the viewport.
    void setScale(double scale);
    /// The same, and the place under `anchor` (viewport pixels) stays.
    void setScale(double scale, QPointF anchor);
    /// One step larger (1) or smaller (-1).
    void stepScale(double steps);
    /// Shows the whole picture, at most at twice its size.
    void fit();
    /// Scrolls so far that the node is seen.
    void reveal(const canvas::LabelsD& node);

    /// Shows the whole picture where its captions stay readable then, otherwise the node in the middle at full size.
    void present(const canvas::LabelsD& node);

    /// Shades in which the nodes are shown, or nothing.
    void setTints(canvas::Tints* tints);
    canvas::Tints* tints() const { return tints_; }

    /// From pixels of the viewport to twips and back.
    Transform transform() const;

    /// The topmost node at a place, or nothing.
    const canvas::LabelsD* nodeAt(canvas::Point place) const;
    /// An edge that passes within `reach` pixels of a place, the topmost one, or nothing.
    const canvas::LinesD* edgeAt(canvas::Point place, double reach) const;

    /// What lies topmost at a place of the viewport. Handles can be hit also while they are not painted.
    canvas::Hit hitAt(QPointF pixel) const;

    /// What the view holds at the moment, for measurements: items in its index, captions laid out.
    std::size_t indexedItems() const { return nodes_.count() + edges_.count(); }
    std::size_t laidOutCaptions() const { return nodePainter_.captions(); }

    void nodeChanged(const canvas::LabelsD& node) override;
    void nodeRemoved(const canvas::LabelsD& node) override;
    void edgeChanged(const canvas::LinesD& edge) override;
    void edgeRemoved(const canvas::LinesD& edge) override;
    void manyChanged() override;
    void markersChanged() override;
    void lightChanged() override { repaintAll(); }

  Q_SIGNALS:
    void scaleChanged();

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

    /// The scroll bar of a comment is taken at a place of the viewport, follows the mouse, and is let go. False when
    /// there is none.
    bool takeCommentBar(QPointF pixel);
    bool dragCommentBar(QPointF pixel);
    bool dropCommentBar();

    canvas::Canvas& shownCanvas() const { return canvas_; }
    /// The canvas is not listened to any more.
    void stopListening() { subscription_.end(); }
    const Theme& theme() const { return theme_; }

  private:
    template <class Item>
    void itemChanged(ItemIndex<Item>& index, const Item& item);
    template <class Item>
    void itemRemoved(ItemIndex<Item>& index, const Item& item);
    bool takesChange();
    void forgetIndex();
    void markDirty(const Extent& extent);
    void ensureIndex() const;
    void settleSoon();
    void settle();
    void updateScrollBars();
    void measureWindow();
    void followPicForm();
    std::optional<Extent> pictureBounds() const;
    QRectF pictureArea() const;

    void paintDots(const PaintContext& context, const QRect& area);
    void paintPicture(const PaintContext& context, const QRegion& region);
    PaintContext contextFor(QPainter& painter, const Transform& now) const;
    void paintPart(QPainter& painter, const QRegion& region);
    void paintMarkers(QPainter& painter);
    bool needsLayer() const;
    void refreshLayer();
    void scrollLayer(int dx, int dy);
    QRegion markerRegion() const;
    void showMarkers();
    void repaintAll();
    struct EdgeHit {
        std::int32_t handle = 0;  ///< 0 for none
        std::int32_t line = 0;    ///< the edge whose line passes nearest, 0 for none
    };
    EdgeHit edgeHitAt(canvas::Point place, float handleReach, float lineReach) const;
    void setPointedEdge(const canvas::LinesD* edge);
    const canvas::LabelsD* commentBarAt(QPointF pixel) const;
    bool scrollComment(const canvas::LabelsD& node, int first);

    canvas::Canvas& canvas_;
    canvas::CanvasSubscription subscription_;
    const Theme& theme_;
    double scale_ = 1;
    canvas::Tints* tints_ = nullptr;
    mutable ItemIndex<canvas::LabelsD> nodes_;
    mutable ItemIndex<canvas::LinesD> edges_;
    mutable bool stale_ = true;  ///< the index has to be built anew before its next use
    std::size_t changes_ = 0;    ///< since the last painting
    int dirtyAreas_ = 0;         ///< asked for since the last painting
    bool settling_ = false;
    const canvas::LinesD* pointedEdge_ = nullptr;
    const canvas::LinesD* drawnEdge_ = nullptr;  ///< has no target yet; painted with the markers, not in the index
    QRegion shownMarkers_;
    QPixmap layer_;       ///< the picture without markers, while a gesture shows some that move
    QRegion layerDirty_;  ///< what of the layer has to be painted again
    canvas::Point shownScroll_;
    canvas::Point shownSize_;
    bool following_ = false;  ///< the bars follow `PicForm` and not the user
    std::optional<QPoint> panFrom_;
    std::int32_t scrolledComment_ = -1;  ///< whose bar is held
    NodePainter nodePainter_;
};

}  // namespace orvent::qt
