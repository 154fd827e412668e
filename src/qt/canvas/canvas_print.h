#pragma once

#include "canvas/canvas.h"

class QPainter;
class QRectF;
class QWidget;

namespace orvent::qt {

/// Paints the whole picture of a canvas, scaled to fit and centred in `page` (pixels of the painter). On white paper,
/// whatever the program's theme.
void paintOnPage(canvas::Canvas& canvas, QPainter& painter, const QRectF& page);

/// Asks for a printer and prints the canvas on one page. With `preview` the page is shown first, and printed from
/// there. Cancel, or a printer that fails, ends it silently.
void printCanvas(canvas::Canvas& canvas, const QString& title, bool preview, QWidget* parent);

}  // namespace orvent::qt
