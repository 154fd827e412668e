#pragma once

#include "canvas/canvas.h"
#include "canvas/tints.h"

class QPainter;
class QRectF;

namespace orvent::qt {

/// Paints the whole picture of a canvas, scaled to fit and centred in `page` (pixels of the painter). On white paper,
/// whatever the program's theme. With tints the nodes have their shades, and the legend stands at the foot of the page.
void paintOnPage(const canvas::Canvas& canvas, QPainter& painter, const QRectF& page,
                 const canvas::Tints* tints = nullptr);

}  // namespace orvent::qt
