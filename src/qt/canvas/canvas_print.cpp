#include "qt/canvas/canvas_print.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include "qt/canvas/edge_painter.h"
#include "qt/canvas/node_painter.h"

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

void printTo(const canvas::Canvas& canvas, QPrinter& printer) {
    QPainter painter;
    if (painter.begin(&printer)) {
        paintOnPage(canvas, painter, QRectF(painter.viewport()));
    }
}

}  // namespace

void paintOnPage(const canvas::Canvas& canvas, QPainter& painter, const QRectF& page) {
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
    const PaintContext context{painter, plain, colours, std::max(1.0, std::ceil(factor)), Detail::full, false};
    NodePainter nodes(QFont{});
    nodes.prepare(context);
    EdgePainter edges(context, canvas, plain.toPixels(extent));
    for (const canvas::LinesD& edge : canvas.Lines) {
        if (edge.Visible() && edge.ToLabel() != 0) {
            edges.add(edge);
        }
    }
    edges.paint();
    for (const canvas::LabelsD& node : canvas.Labels) {
        if (node.Visible()) {
            const bool selected = canvas.SelectedLabels.Item(node.Index()) != nullptr;
            nodes.paint(context, node, {false, false, selected ? canvas.settings().SelColor : 0});
        }
    }
    painter.restore();
}

CanvasPrinter::CanvasPrinter() = default;
CanvasPrinter::~CanvasPrinter() = default;

void CanvasPrinter::print(const canvas::Canvas& canvas, const QString& title, bool preview, QWidget* parent) {
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    }
    QPrinter& printer = *printer_;
    printer.setDocName(title);
    printer.setCopyCount(1);
    printer.setPageOrientation(canvas.PicForm.Width() > canvas.PicForm.Height() ? QPageLayout::Landscape
                                                                                : QPageLayout::Portrait);
    if (preview) {
        QPrintPreviewDialog dialog(&printer, parent);
        dialog.setObjectName(QStringLiteral("PrintPreview"));
        QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                         [&canvas](QPrinter* target) { printTo(canvas, *target); });
        dialog.exec();
        return;
    }
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName(QStringLiteral("PrintDialog"));
    if (dialog.exec() == QDialog::Accepted) {
        printTo(canvas, printer);
    }
}

}  // namespace orvent::qt
