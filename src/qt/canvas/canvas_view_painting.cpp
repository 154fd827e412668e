// How the view paints: only what lies in the exposed region, edges below nodes, handles on top.

#include <QPaintEngine>
#include <QPaintEvent>

#include "qt/canvas/canvas_view.h"
#include "qt/canvas/edge_painter.h"

namespace orvent::qt {

namespace {

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

void CanvasViewWidget::paintEvent(QPaintEvent* event) {
    ensureIndex();
    changes_ = 0;
    dirtyAreas_ = 0;
    QPainter painter;
    if (needsLayer()) {
        refreshLayer();
        painter.begin(viewport());
        for (const QRect& part : event->region()) {
            const double ratio = layer_.devicePixelRatio();
            painter.drawPixmap(QRectF(part), layer_,
                               QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio));
        }
    } else {
        layer_ = QPixmap();
        layerDirty_ = QRegion();
        painter.begin(viewport());
        paintPart(painter, event->region());
    }
    paintMarkers(painter);
}

PaintContext CanvasViewWidget::contextFor(QPainter& painter, const Transform& now) const {
    return {painter, now, theme_.canvas(), viewport()->devicePixelRatioF(), detailAt(scale_), true, nullptr, tints_};
}

/// Boxes and lines are written into the device's own pixels where it has some, and otherwise by way of an image.
void CanvasViewWidget::paintPart(QPainter& painter, const QRegion& region) {
    const QRect area = region.boundingRect();
    const double ratio = viewport()->devicePixelRatioF();
    const QRect device = QRectF(QPointF(area.topLeft()) * ratio, QSizeF(area.size()) * ratio).toAlignedRect();
    const QPointF origin = QPointF(device.topLeft()) / ratio;
    std::optional<QImage> part = region.rectCount() == 1 ? partOf(painter, area) : std::nullopt;
    QImage image = part ? std::move(*part) : QImage(device.size(), QImage::Format_RGB32);
    image.fill(theme_.canvas().background);
    image.setDevicePixelRatio(ratio);
    Pixels pixels(image, origin, ratio);
    QPainter inner(&image);
    inner.translate(-origin);
    inner.setRenderHint(QPainter::Antialiasing, detailAt(scale_) == Detail::full);
    const Transform now = transform();
    PaintContext context = contextFor(inner, now);
    context.image = &pixels;
    nodePainter_.prepare(context);
    paintDots(context, area);
    paintPicture(context, region);
    inner.end();
    if (!part) {
        painter.drawImage(origin, image);
    }
}

void CanvasViewWidget::paintDots(const PaintContext& context, const QRect& area) {
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

void CanvasViewWidget::paintPicture(const PaintContext& context, const QRegion& region) {
    const QRectF area = QRectF(region.boundingRect()).adjusted(-3, -3, 3, 3);
    const Extent exposed = context.transform.toTwips(area);
    const auto isExposed = [&](const Extent& extent) {
        return region.rectCount() == 1 ||
               region.intersects(
                   context.transform.toPixels(extent).adjusted(-3, -3, 3, 3).intersected(area).toAlignedRect());
    };
    std::vector<const canvas::LinesD*> withHandles;
    EdgePainter edges(context, canvas_, area.adjusted(-10, -10, 10, 10), canvas_.light());
    for (const canvas::LinesD* edge : edges_.at(exposed)) {
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
    for (const canvas::LabelsD* node : nodes_.at(exposed)) {
        if (node->Visible() && isExposed(extentOf(*node))) {
            if (node->Index() == canvas_.centralNode()) {
                paintCentre(context, *node);
            }
            nodePainter_.paint(context, *node,
                               {canvas_.SelectedLabels.Item(node->Index()) != nullptr,
                                !light.isEmpty() && !light.holdsNode(node->Index())});
        }
    }
    for (const canvas::LinesD* edge : withHandles) {
        paintHandles(context, *edge, edge->Selected() || edge->HighLighted());
    }
}

}  // namespace orvent::qt
