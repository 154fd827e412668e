#pragma once

#include <QPainterPath>
#include <QRectF>

#include "canvas/node_kinds.h"
#include "qt/canvas/captions.h"

namespace orvent::qt {

/// The share of an activity's height that its waist leaves free above and below; its upper and lower grab points lie
/// just inside.
inline constexpr double kFunnelWaist = 0.2;

/// How a figure is drawn inside a box. `unit` is one pixel at scale 1.
struct NodeShape {
    QPainterPath (*outline)(const QRectF& box, double unit);
    QRectF (*captionRoom)(const QRectF& box, double unit);
    CaptionForm form;
};

const NodeShape& nodeShape(canvas::Figure figure);

/// The coloured parts inside the outline.
QPainterPath funnelMouth(const QRectF& box, double unit);
QPainterPath drumLid(const QRectF& box, double unit);
QPainterPath sheetFold(const QRectF& box, double unit);
QPainterPath tagHole(const QRectF& box, double unit);
QPainterPath fieldStripe(const QRectF& box, double unit);
QPainterPath innerHexagon(const QRectF& box, double unit);
QPainterPath cardHeader(const QRectF& box, double unit);

}  // namespace orvent::qt
