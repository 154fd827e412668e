// How the view paints: only what lies in the exposed region, edges below nodes, handles on top.

#include <QPaintEvent>

#include "qt/canvas/canvas_view.h"
#include "qt/canvas/edge_painter.h"

namespace orvent::qt {

namespace {

constexpr double kDotDistance = 300;  // twips
constexpr double kLeastDotDistance = 12;

/// A tile with one dot, for the ground of the canvas.
QPixmap dotTile(const CanvasColours& colours, double distance, double ratio) {
    const int side = static_cast<int>(std::lround(distance * ratio));
    QPixmap tile(side, side);
    tile.fill(colours.background);
    QPainter painter(&tile);
    const int size = std::max(1, static_cast<int>(std::lround(ratio)));
    painter.fillRect(0, 0, size, size, colours.dot);
    painter.end();
    tile.setDevicePixelRatio(ratio);
    return tile;
}

}  // namespace

void CanvasViewWidget::paintEvent(QPaintEvent* event) {
    ensureIndex();
    changes_ = 0;
    dirtyAreas_ = 0;
    QPainter painter(viewport());
    const Transform now = transform();
    const PaintContext context{painter, now, theme_.canvas(), viewport()->devicePixelRatioF(), detailAt(scale_)};
    nodePainter_.prepare(context);
    paintBackground(painter, event->rect());
    painter.setRenderHint(QPainter::Antialiasing, context.detail == Detail::full);
    paintPicture(context, event->region());
}

void CanvasViewWidget::paintBackground(QPainter& painter, const QRect& area) {
    const CanvasColours& colours = theme_.canvas();
    const double distance = transform().pixels(kDotDistance);
    if (distance < kLeastDotDistance) {
        painter.fillRect(area, colours.background);
        return;
    }
    const double ratio = viewport()->devicePixelRatioF();
    const int side = static_cast<int>(std::lround(distance * ratio));
    if (dots_.width() != side || dots_.devicePixelRatio() != ratio) {
        dots_ = dotTile(colours, distance, ratio);
    }
    // The tile starts at the picture's origin and so scrolls with it.
    painter.drawTiledPixmap(QRectF(area), dots_, QPointF(area.topLeft()) + transform().origin);
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
    EdgePainter edges(context, canvas_, area.adjusted(-10, -10, 10, 10));
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
    for (const canvas::LabelsD* node : nodes_.at(exposed)) {
        if (node->Visible() && isExposed(extentOf(*node))) {
            nodePainter_.paint(context, *node, canvas_.SelectedLabels.Item(node->Index()) != nullptr);
        }
    }
    for (const canvas::LinesD* edge : withHandles) {
        paintHandles(context, *edge, edge->Selected() || edge->HighLighted());
    }
    if (canvas_.GrabbingPoint != 0) {
        const double pen = context.penWidth(2);
        context.painter.setPen(QPen(context.colours.accent, pen));
        context.painter.setBrush(context.colours.handleFill);
        context.painter.drawEllipse(context.transform.toPixels(canvas_.Grabber), context.length(4), context.length(4));
    }
}

}  // namespace orvent::qt
