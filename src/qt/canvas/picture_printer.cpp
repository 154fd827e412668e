#include "qt/canvas/picture_printer.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace orvent::qt {

namespace {

void printTo(const PagePicture& picture, QPrinter& printer) {
    QPainter painter;
    if (painter.begin(&printer)) {
        picture.paint(painter, QRectF(painter.viewport()));
    }
}

}  // namespace

PicturePrinter::PicturePrinter() = default;
PicturePrinter::~PicturePrinter() = default;

void PicturePrinter::print(const PagePicture& picture, bool preview, QWidget* parent) {
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    }
    QPrinter& printer = *printer_;
    printer.setDocName(picture.title);
    printer.setCopyCount(1);
    printer.setPageOrientation(picture.isWide ? QPageLayout::Landscape : QPageLayout::Portrait);
    if (preview) {
        QPrintPreviewDialog dialog(&printer, parent);
        dialog.setObjectName(QStringLiteral("PrintPreview"));
        QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                         [&picture](QPrinter* target) { printTo(picture, *target); });
        dialog.exec();
        return;
    }
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName(QStringLiteral("PrintDialog"));
    if (dialog.exec() == QDialog::Accepted) {
        printTo(picture, printer);
    }
}

}  // namespace orvent::qt
