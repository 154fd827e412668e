// What a gesture shows above the picture, and the edge under the pointer.

#include <array>

#include "qt/canvas/edge_painter.h"
#include "qt/canvas/picture_painter.h"

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

void PicturePainter::setPointedEdge(const canvas::LinesD* edge) {
    if (edge == pointedEdge_) {
        return;
    }
    for (const canvas::LinesD* changed : {pointedEdge_, edge}) {
        if (changed) {
            markDirty(extentOf(*changed));
        }
    }
    pointedEdge_ = edge;
}

void PicturePainter::rescaled() {
    repaintAll();
    shownMarkers_ = markerRegion();
}

bool PicturePainter::takesEdge(const canvas::LinesD& edge) {
    const bool drawn = !canvas::isGiven(edge.ToLabel());
    if (drawn || drawnEdge_ == &edge) {
        drawnEdge_ = drawn ? &edge : nullptr;
        showMarkers();
    }
    return !drawn;
}

void PicturePainter::forgetEdge(const canvas::LinesD& edge) {
    if (pointedEdge_ == &edge) {
        pointedEdge_ = nullptr;
    }
    if (drawnEdge_ == &edge) {
        drawnEdge_ = nullptr;
        showMarkers();
    }
}

bool PicturePainter::needsLayer() const {
    return drawnEdge_ || view_.CroppingRect.Visible || view_.ResizeLabel.Visible || view_.DragOutline.Visible;
}

QRegion PicturePainter::markerRegion() const {
    const Transform now = scroller_.transform();
    QRegion region;
    for (const canvas::MarkerBox* box : {&view_.CroppingRect, &view_.ResizeLabel, &view_.DragOutline}) {
        if (box->Visible) {
            region += rimOf(boxOf(now, *box), viewport_.rect());
        }
    }
    if (!view_.DragOutlines.empty()) {
        QRectF all;
        for (const canvas::Box& box : view_.DragOutlines) {
            all |= now.toPixels(Extent{box.Left, box.Top, box.right(), box.bottom()});
        }
        region +=
            (all & QRectF(viewport_.rect())).toAlignedRect().adjusted(-kMarkerRim, -kMarkerRim, kMarkerRim, kMarkerRim);
    }
    if (view_.GrabberVisible) {
        const double reach = std::max(1.0, scroller_.scale()) * kGrabberReach;
        const QPointF at = now.toPixels(view_.Grabber);
        region += QRectF(at.x() - reach, at.y() - reach, 2 * reach, 2 * reach).toAlignedRect();
    }
    if (drawnEdge_) {
        const QRectF seen = now.toPixels(extentOf(*drawnEdge_)) & QRectF(viewport_.rect());
        region += seen.toAlignedRect();
    }
    return region;
}

void PicturePainter::showMarkers() {
    const QRegion region = markerRegion();
    viewport_.update(region + shownMarkers_);
    shownMarkers_ = region;
}

void PicturePainter::refreshLayer() {
    const double ratio = viewport_.devicePixelRatioF();
    const QSize size = viewport_.size() * ratio;
    if (layer_.size() != size || layer_.devicePixelRatio() != ratio) {
        layer_ = QPixmap(size);
        layer_.setDevicePixelRatio(ratio);
        layerDirty_ = viewport_.rect();
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

void PicturePainter::scrolled(int dx, int dy) {
    shownMarkers_.translate(dx, dy);
    if (layer_.isNull()) {
        return;
    }
    const double ratio = layer_.devicePixelRatio();
    if (ratio != std::floor(ratio)) {
        layerDirty_ = viewport_.rect();
        return;
    }
    const int whole = static_cast<int>(ratio);
    layer_.scroll(dx * whole, dy * whole, layer_.rect());
    layerDirty_.translate(dx, dy);
    layerDirty_ += QRegion(viewport_.rect()) - viewport_.rect().translated(dx, dy);
}

void PicturePainter::paintMarkers(QPainter& painter) {
    const Transform now = scroller_.transform();
    const PaintContext context = contextFor(painter, now);
    const QColor accent = context.colours.accent;
    if (drawnEdge_) {
        painter.setRenderHint(QPainter::Antialiasing);
        EdgePainter edge(context, canvas_, QRectF(viewport_.rect()).adjusted(-10, -10, 10, 10));
        edge.add(*drawnEdge_);
        edge.paint();
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    const double pen = context.penWidth(1 / scroller_.scale());
    const std::array<std::pair<const canvas::MarkerBox*, Qt::PenStyle>, 3> boxes = {
        {{&view_.CroppingRect, Qt::DashLine},
         {&view_.ResizeLabel, Qt::SolidLine},
         {&view_.DragOutline, Qt::SolidLine}}};
    for (const auto& [box, style] : boxes) {
        // Cut near the viewport, since an outline may reach very far.
        const QRectF seen = boxOf(now, *box) & QRectF(viewport_.rect()).adjusted(-5, -5, 5, 5);
        if (box->Visible && !seen.isNull()) {
            painter.setPen(QPen(accent, pen, style));
            painter.drawRect(context.sharp(seen, pen));
        }
    }
    painter.setPen(QPen(accent, pen));
    for (const canvas::Box& box : view_.DragOutlines) {
        const QRectF seen = now.toPixels(Extent{box.Left, box.Top, box.right(), box.bottom()}) &
                            QRectF(viewport_.rect()).adjusted(-5, -5, 5, 5);
        if (!seen.isNull()) {
            painter.drawRect(context.sharp(seen, pen));
        }
    }
    if (view_.GrabberVisible) {
        painter.setRenderHint(QPainter::Antialiasing);
        const double radius = std::max(3.0, context.length(4));
        painter.setPen(QPen(accent, context.penWidth(2)));
        painter.setBrush(context.colours.handleFill);
        painter.drawEllipse(now.toPixels(view_.Grabber), radius, radius);
    }
}

}  // namespace orvent::qt
