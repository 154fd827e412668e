// What a gesture shows above the picture. It moves with every event, so the picture below is kept in a layer meanwhile.

#include <array>

#include "qt/canvas/canvas_view.h"
#include "qt/canvas/edge_painter.h"

namespace orvent::qt {

namespace {

constexpr int kMarkerRim = 3;        // pixels to both sides of an outline
constexpr int kGrabberReach = 8;     // pixels around the grab point, at scale 1
constexpr int kMostDirtyParts = 16;  // more are cheaper to paint as one

QRectF boxOf(const Transform& transform, const canvas::MarkerBox& box) {
    return transform.toPixels(Extent{box.Left, box.Top, box.Left + box.Width, box.Top + box.Height});
}

/// The rim of a box within the viewport; what lies inside stays as it is.
QRegion rimOf(const QRectF& box, const QRect& room) {
    const QRectF near = box & QRectF(room).adjusted(-2 * kMarkerRim, -2 * kMarkerRim, 2 * kMarkerRim, 2 * kMarkerRim);
    if (near.isNull()) {
        return {};
    }
    const QRect rect = near.toAlignedRect();
    return QRegion(rect.adjusted(-kMarkerRim, -kMarkerRim, kMarkerRim, kMarkerRim)) -
           rect.adjusted(kMarkerRim, kMarkerRim, -kMarkerRim, -kMarkerRim);
}

}  // namespace

bool CanvasViewWidget::needsLayer() const {
    return drawnEdge_ || canvas_.CroppingRect.Visible || canvas_.ResizeLabel.Visible || canvas_.DragOutline.Visible;
}

QRegion CanvasViewWidget::markerRegion() const {
    const Transform now = transform();
    QRegion region;
    for (const canvas::MarkerBox* box : {&canvas_.CroppingRect, &canvas_.ResizeLabel, &canvas_.DragOutline}) {
        if (box->Visible) {
            region += rimOf(boxOf(now, *box), viewport()->rect());
        }
    }
    if (!canvas_.DragOutlines.empty()) {
        QRectF all;
        for (const canvas::Box& box : canvas_.DragOutlines) {
            all |= now.toPixels(Extent{box.Left, box.Top, box.right(), box.bottom()});
        }
        region += (all & QRectF(viewport()->rect()))
                      .toAlignedRect()
                      .adjusted(-kMarkerRim, -kMarkerRim, kMarkerRim, kMarkerRim);
    }
    if (canvas_.GrabberVisible) {
        const double reach = std::max(1.0, scale_) * kGrabberReach;
        const QPointF at = now.toPixels(canvas_.Grabber);
        region += QRectF(at.x() - reach, at.y() - reach, 2 * reach, 2 * reach).toAlignedRect();
    }
    if (drawnEdge_) {
        const QRectF seen = now.toPixels(extentOf(*drawnEdge_)) & QRectF(viewport()->rect());
        region += seen.toAlignedRect();
    }
    return region;
}

void CanvasViewWidget::showMarkers() {
    const QRegion region = markerRegion();
    viewport()->update(region + shownMarkers_);
    shownMarkers_ = region;
}

void CanvasViewWidget::refreshLayer() {
    const double ratio = viewport()->devicePixelRatioF();
    const QSize size = viewport()->size() * ratio;
    if (layer_.size() != size || layer_.devicePixelRatio() != ratio) {
        layer_ = QPixmap(size);
        layer_.setDevicePixelRatio(ratio);
        layerDirty_ = viewport()->rect();
    }
    if (layerDirty_.isEmpty()) {
        return;
    }
    if (layerDirty_.rectCount() > kMostDirtyParts) {
        layerDirty_ = layerDirty_.boundingRect();
    }
    QPainter painter(&layer_);
    painter.setClipRegion(layerDirty_);
    paintPart(painter, layerDirty_);
    layerDirty_ = QRegion();
}

void CanvasViewWidget::scrollLayer(int dx, int dy) {
    shownMarkers_.translate(dx, dy);
    if (layer_.isNull()) {
        return;
    }
    const double ratio = layer_.devicePixelRatio();
    if (ratio != std::floor(ratio)) {
        layerDirty_ = viewport()->rect();
        return;
    }
    const int whole = static_cast<int>(ratio);
    layer_.scroll(dx * whole, dy * whole, layer_.rect());
    layerDirty_.translate(dx, dy);
    layerDirty_ += QRegion(viewport()->rect()) - viewport()->rect().translated(dx, dy);
}

void CanvasViewWidget::paintMarkers(QPainter& painter) {
    const Transform now = transform();
    const PaintContext context = contextFor(painter, now);
    const QColor accent = context.colours.accent;
    if (drawnEdge_) {
        painter.setRenderHint(QPainter::Antialiasing);
        EdgePainter edge(context, canvas_, QRectF(viewport()->rect()).adjusted(-10, -10, 10, 10));
        edge.add(*drawnEdge_);
        edge.paint();
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    const double pen = context.penWidth(1 / scale_);
    const std::array<std::pair<const canvas::MarkerBox*, Qt::PenStyle>, 3> boxes = {
        {{&canvas_.CroppingRect, Qt::DashLine},
         {&canvas_.ResizeLabel, Qt::SolidLine},
         {&canvas_.DragOutline, Qt::SolidLine}}};
    for (const auto& [box, style] : boxes) {
        // Cut near the viewport, since an outline may reach very far.
        const QRectF seen = boxOf(now, *box) & QRectF(viewport()->rect()).adjusted(-5, -5, 5, 5);
        if (box->Visible && !seen.isNull()) {
            painter.setPen(QPen(accent, pen, style));
            painter.drawRect(context.sharp(seen, pen));
        }
    }
    painter.setPen(QPen(accent, pen));
    for (const canvas::Box& box : canvas_.DragOutlines) {
        const QRectF seen = now.toPixels(Extent{box.Left, box.Top, box.right(), box.bottom()}) &
                            QRectF(viewport()->rect()).adjusted(-5, -5, 5, 5);
        if (!seen.isNull()) {
            painter.drawRect(context.sharp(seen, pen));
        }
    }
    if (canvas_.GrabberVisible) {
        painter.setRenderHint(QPainter::Antialiasing);
        const double radius = std::max(3.0, context.length(4));
        painter.setPen(QPen(accent, context.penWidth(2)));
        painter.setBrush(context.colours.handleFill);
        painter.drawEllipse(now.toPixels(canvas_.Grabber), radius, radius);
    }
}

}  // namespace orvent::qt
