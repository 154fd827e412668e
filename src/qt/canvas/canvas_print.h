#pragma once

#include <QString>
#include <memory>

#include "canvas/canvas.h"
#include "canvas/tints.h"

class QPainter;
class QPrinter;
class QRectF;
class QWidget;

namespace orvent::qt {

/// Paints the whole picture of a canvas, scaled to fit and centred in `page` (pixels of the painter). On white paper,
/// whatever the program's theme. With tints the nodes have their shades, and the legend stands at the foot of the page.
void paintOnPage(const canvas::Canvas& canvas, QPainter& painter, const QRectF& page,
                 const canvas::Tints* tints = nullptr);

/// Prints canvases on one page each, on the printer that was chosen last.
class CanvasPrinter {
  public:
    CanvasPrinter();
    ~CanvasPrinter();

    /// Asks for a printer. With `preview` the page is shown first, and printed from there. Cancel, or a printer that
    /// fails, ends it silently.
    void print(const canvas::Canvas& canvas, const canvas::Tints* tints, const QString& title, bool preview,
               QWidget* parent);

  private:
    std::unique_ptr<QPrinter> printer_;
};

}  // namespace orvent::qt
