#include "qt/canvas/canvas_print.h"

#include <QPainter>

#include "qt/canvas/edge_painter.h"
#include "qt/canvas/node_painter.h"
#include "qt/canvas/tint_legend.h"
#include "qt/text.h"

namespace orvent::qt {

namespace {

CanvasColours paperColours() {
    CanvasColours colours = Theme(ThemeMode::light).canvas();
    colours.background = Qt::white;
    return colours;
}

/// All of `PicForm`, and what lies beyond it.
Extent printedExtent(const canvas::Canvas& canvas) {
    Extent extent{0, 0, canvas.PicForm.Width(), canvas.PicForm.Height()};
    for (const canvas::LabelsD& node : canvas.Labels) {
        extent = node.Visible() ? extent.united(extentOf(node)) : extent;
    }
    for (const canvas::LinesD& edge : canvas.Lines) {
        extent = edge.Visible() ? extent.united(extentOf(edge)) : extent;
    }
    return extent;
}

/// Draws what the shades stand for at the foot of a page, and gives the rest of the page.
QRectF withoutLegend(const canvas::Tints& tints, QPainter& painter, const QRectF& page) {
    constexpr int kLines = 3;
    const double line = painter.fontMetrics().height();
    const QRectF foot(page.left(), page.bottom() - line, page.width(), line);
    const QRectF scale(foot.left(), foot.top(), 10 * line, line);
    const CanvasColours colours = paperColours();
    paintTintScale(painter, scale, colours);
    painter.setPen(colours.darkText);
    painter.drawText(foot.adjusted(scale.width() + line, 0, 0, 0), Qt::AlignVCenter | Qt::TextSingleLine,
                     text(tints.choices()[tints.chosen()] + ": " + tints.range()));
    return page.adjusted(0, 0, 0, -kLines * line / 2);
}

}  // namespace

void paintOnPage(const canvas::Canvas& canvas, QPainter& painter, const QRectF& whole, const canvas::Tints* tints) {
    const QRectF page = tints ? withoutLegend(*tints, painter, whole) : whole;
    const Extent extent = printedExtent(canvas);
    const double width = std::max(1.0, static_cast<double>(extent.right) - extent.left);
    const double height = std::max(1.0, static_cast<double>(extent.bottom) - extent.top);
    // The painters work at scale 1; the painter's own transformation brings that to the page.
    const double factor = std::min(page.width() / width, page.height() / height) * kTwipsPerPixel;
    const CanvasColours colours = paperColours();
    const Transform plain{1, {}};
    painter.save();
    painter.translate(page.center());
    painter.scale(factor, factor);
    painter.translate(-plain.toPixels(extent).center());
    painter.setRenderHint(QPainter::Antialiasing);
    const PaintContext context{painter,      plain, colours, std::max(1.0, std::ceil(factor)),
                               Detail::full, false, nullptr, tints};
    NodePainter nodes(QFont{});
    nodes.prepare(context);
    EdgePainter edges(context, canvas, plain.toPixels(extent));
    for (const canvas::LinesD& edge : std::as_const(canvas.Lines)) {
        if (edge.Visible() && canvas::isGiven(edge.ToLabel())) {
            edges.add(edge);
        }
    }
    edges.paint();
    for (const canvas::LabelsD& node : std::as_const(canvas.Labels)) {
        if (node.Visible()) {
            const bool selected = canvas.SelectedLabels.Item(node.Index()) != nullptr;
            nodes.paint(context, node, {false, false, selected ? canvas.settings().SelColor : 0});
        }
    }
    painter.restore();
}

}  // namespace orvent::qt
