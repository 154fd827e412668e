#pragma once

#include <QPixmap>
#include <QRegion>
#include <QWidget>

#include "canvas/view_state.h"
#include "qt/canvas/node_painter.h"
#include "qt/canvas/picture_index.h"
#include "qt/canvas/picture_scroller.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

/// Paints what a view shows: only what lies in the exposed region, edges below nodes, handles on top, and above all
/// that what a gesture shows. That moves with every event, so the picture below is kept in a layer meanwhile. It asks
/// the viewport for areas to be painted.
class PicturePainter {
  public:
    /// All outlive the painter.
    PicturePainter(const canvas::Canvas& canvas, const canvas::ViewState& view, const PictureIndex& index,
                   const PictureScroller& scroller, const Theme& theme, QWidget& viewport);

    /// A paint event of the viewport.
    void paint(const QRegion& region);

    // What has to be painted again.
    void markDirty(const Extent& extent);
    void repaintAll();
    /// Where the markers are and where they were.
    void showMarkers();
    /// The scale is another one.
    void rescaled();
    void scrolled(int dx, int dy);
    void dropLayer() { layer_ = QPixmap(); }

    /// Shades in which the nodes are shown, or nothing.
    void setTints(canvas::Tints* tints);
    void setNotes(const canvas::NodeNotes* notes);
    canvas::Tints* tints() const { return tints_; }

    /// The edge whose handles are shown because the pointer is on it, or nothing.
    void setPointedEdge(const canvas::LinesD* edge);
    /// An edge changed: while it has no target it is painted with the markers. True when it is one of the picture.
    bool takesEdge(const canvas::LinesD& edge);
    void forgetEdge(const canvas::LinesD& edge);

    NodePainter& nodes() { return nodes_; }
    const NodePainter& nodes() const { return nodes_; }

  private:
    PaintContext contextFor(QPainter& painter, const Transform& now) const;
    void paintPart(QPainter& painter, const QRegion& region);
    void paintDots(const PaintContext& context, const QRect& area);
    void paintPicture(const PaintContext& context, const QRegion& region);
    void paintMarkers(QPainter& painter);
    bool needsLayer() const;
    void refreshLayer();
    QRegion markerRegion() const;

    const canvas::Canvas& canvas_;
    const canvas::ViewState& view_;
    const PictureIndex& index_;
    const PictureScroller& scroller_;
    const Theme& theme_;
    QWidget& viewport_;
    NodePainter nodes_;
    canvas::Tints* tints_ = nullptr;
    const canvas::NodeNotes* notes_ = nullptr;
    const canvas::LinesD* pointedEdge_ = nullptr;
    const canvas::LinesD* drawnEdge_ = nullptr;  ///< has no target yet; painted with the markers, not in the index
    int dirtyAreas_ = 0;                         ///< asked for since the last painting
    QRegion shownMarkers_;
    QPixmap layer_;       ///< the picture without markers, while a gesture shows some that move
    QRegion layerDirty_;  ///< what of the layer has to be painted again
};

}  // namespace orvent::qt
