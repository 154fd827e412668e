#include "qt/canvas/picture_painter.h"

#include <QPaintEngine>
#include <algorithm>

#include "qt/canvas/edge_painter.h"

namespace orvent::qt {

namespace {

constexpr int kMostDirtyAreas = 48;   // more are cheaper to repaint as one
constexpr double kDotDistance = 300;  // twips
constexpr double kLeastDotDistance = 12;

/// The part of the painter's device that shows an area of its widget, as an image over the same memory. Nothing where
/// the device has no pixels of its own, or where the area does not lie on whole ones.
std::optional<QImage> partOf(const QPainter& painter, const QRect& area) {
    QPaintDevice* device = painter.paintEngine()->paintDevice();
    if (!device || device->devType() != QInternal::Image) {
        return std::nullopt;
    }
    auto& whole = *static_cast<QImage*>(device);
    const QTransform toDevice = painter.deviceTransform();
    const QRectF exact = toDevice.mapRect(QRectF(area));
    const QRect place = exact.toRect();
    const bool plain = whole.format() == QImage::Format_RGB32 || whole.format() == QImage::Format_ARGB32_Premultiplied;
    const bool onWholePixels = toDevice.type() <= QTransform::TxScale && QRectF(place) == exact &&
                               toDevice.m11() == std::floor(toDevice.m11());
    if (!plain || !onWholePixels || !whole.isDetached() || !whole.rect().contains(place)) {
        return std::nullopt;
    }
    uchar* first = whole.bits() + place.y() * whole.bytesPerLine() + place.x() * qsizetype{sizeof(QRgb)};
    return QImage(first, place.width(), place.height(), whole.bytesPerLine(), whole.format());
}

}  // namespace

PicturePainter::PicturePainter(const canvas::Canvas& canvas, const canvas::ViewState& view, const PictureIndex& index,
                               const PictureScroller& scroller, const Theme& theme, QWidget& viewport)
    : canvas_(canvas),
      view_(view),
      index_(index),
      scroller_(scroller),
      theme_(theme),
      viewport_(viewport),
      nodes_(viewport.font()) {}

void PicturePainter::markDirty(const Extent& extent) {
    if (dirtyAreas_ > kMostDirtyAreas) {
        return;
    }
    const QRectF area = scroller_.transform().toPixels(extent).adjusted(-3, -3, 3, 3) & QRectF(viewport_.rect());
    if (area.isEmpty()) {
        return;
    }
    if (++dirtyAreas_ > kMostDirtyAreas) {
        repaintAll();
    } else {
        layerDirty_ += area.toAlignedRect();
        viewport_.update(area.toAlignedRect());
    }
}

void PicturePainter::setTints(canvas::Tints* tints) {
    tints_ = tints;
    repaintAll();
}

void PicturePainter::setNotes(const canvas::NodeNotes* notes) {
    notes_ = notes;
    repaintAll();
}

void PicturePainter::repaintAll() {
    layerDirty_ = viewport_.rect();
    viewport_.update();
}

void PicturePainter::paint(const QRegion& region) {
    dirtyAreas_ = 0;
    QPainter painter;
    if (needsLayer()) {
        refreshLayer();
        painter.begin(&viewport_);
        for (const QRect& part : region) {
            const double ratio = layer_.devicePixelRatio();
            painter.drawPixmap(QRectF(part), layer_,
                               QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio));
        }
    } else {
        layer_ = QPixmap();
        layerDirty_ = QRegion();
        painter.begin(&viewport_);
        paintPart(painter, region);
    }
    paintMarkers(painter);
}

PaintContext PicturePainter::contextFor(QPainter& painter, const Transform& now) const {
    return {painter, now,    theme_.canvas(), viewport_.devicePixelRatioF(), detailAt(scroller_.scale()), true,
            nullptr, tints_, notes_};
}

/// Boxes and lines are written into the device's own pixels where it has some, and otherwise by way of an image.
void PicturePainter::paintPart(QPainter& painter, const QRegion& region) {
    const QRect area = region.boundingRect();
    const double ratio = viewport_.devicePixelRatioF();
    const QRect device = QRectF(QPointF(area.topLeft()) * ratio, QSizeF(area.size()) * ratio).toAlignedRect();
    const QPointF origin = QPointF(device.topLeft()) / ratio;
    std::optional<QImage> part = region.rectCount() == 1 ? partOf(painter, area) : std::nullopt;
    QImage image = part ? std::move(*part) : QImage(device.size(), QImage::Format_RGB32);
    image.fill(theme_.canvas().background);
    image.setDevicePixelRatio(ratio);
    Pixels pixels(image, origin, ratio);
    QPainter inner(&image);
    inner.translate(-origin);
    inner.setRenderHint(QPainter::Antialiasing, detailAt(scroller_.scale()) == Detail::full);
    const Transform now = scroller_.transform();
    PaintContext context = contextFor(inner, now);
    context.image = &pixels;
    nodes_.prepare(context);
    paintDots(context, area);
    paintPicture(context, region);
    inner.end();
    if (!part) {
        painter.drawImage(origin, image);
    }
}

void PicturePainter::paintDots(const PaintContext& context, const QRect& area) {
    const double distance = context.transform.pixels(kDotDistance);
    if (distance < kLeastDotDistance) {
        return;
    }
    // At whole device pixels from the picture's origin, so that they scroll with it.
    const double step = std::round(distance * context.pixelRatio) / context.pixelRatio;
    const double size = std::max(1.0, std::round(context.pixelRatio)) / context.pixelRatio;
    const QRgb colour = context.colours.dot.rgb();
    const QPointF origin = context.transform.origin;
    const auto firstFrom = [&](double place) { return std::floor(place / step) * step; };
    for (double y = firstFrom(area.top() + origin.y()); y <= area.bottom() + origin.y(); y += step) {
        for (double x = firstFrom(area.left() + origin.x()); x <= area.right() + origin.x(); x += step) {
            context.image->fill(QRectF(x - origin.x(), y - origin.y(), size, size), colour);
        }
    }
}

void PicturePainter::paintPicture(const PaintContext& context, const QRegion& region) {
    const QRectF area = QRectF(region.boundingRect()).adjusted(-3, -3, 3, 3);
    const Extent exposed = context.transform.toTwips(area);
    const auto isExposed = [&](const Extent& extent) {
        return region.rectCount() == 1 ||
               region.intersects(
                   context.transform.toPixels(extent).adjusted(-3, -3, 3, 3).intersected(area).toAlignedRect());
    };
    std::vector<const canvas::LinesD*> withHandles;
    EdgePainter edges(context, canvas_, area.adjusted(-10, -10, 10, 10), canvas_.light());
    for (const canvas::LinesD* edge : index_.edgesIn(exposed)) {
        if (!edge->Visible() || !isExposed(extentOf(*edge))) {
            continue;
        }
        edges.add(*edge);
        if (context.detail == Detail::full && (edge->Selected() || edge->HighLighted() || edge == pointedEdge_)) {
            withHandles.push_back(edge);
        }
    }
    edges.paint();
    const canvas::Light& light = canvas_.light();
    const std::vector<canvas::NodeNumber>& found = canvas_.found();
    for (const canvas::LabelsD* node : index_.nodesIn(exposed)) {
        if (node->Visible() && isExposed(extentOf(*node))) {
            if (node->Index() == canvas_.centralNode()) {
                paintCentre(context, *node);
            }
            if (context.selection && std::binary_search(found.begin(), found.end(), node->Index())) {
                paintFound(context, *node);
            }
            nodes_.paint(context, *node,
                         {canvas_.SelectedLabels.Item(node->Index()) != nullptr,
                          !light.isEmpty() && !light.holdsNode(node->Index()), 0,
                          context.detail == Detail::full && !canvas_.beyondOf(*node).empty()});
        }
    }
    for (const canvas::LinesD* edge : withHandles) {
        paintHandles(context, *edge, edge->Selected() || edge->HighLighted());
    }
}

}  // namespace orvent::qt
