#pragma once

#include <QPainterPath>
#include <QRectF>

#include "canvas/labels.h"
#include "qt/canvas/captions.h"

namespace orvent::qt {

/// The share of an activity's height that its waist leaves free above and below; its upper and lower grab points lie
/// just inside.
inline constexpr double kActivityWaist = 0.2;

/// How a kind of node is drawn inside its box. `unit` is one pixel at scale 1.
struct NodeShape {
    QPainterPath (*outline)(const QRectF& box, double unit);
    QRectF (*captionRoom)(const QRectF& box, double unit);
    CaptionForm form;
};

/// The shape of a node kind; an unknown kind is a plain box.
const NodeShape& nodeShape(canvas::NodeTypeCode nodeType);

/// The coloured parts inside the outline.
QPainterPath activityMouth(const QRectF& box, double unit);
QPainterPath recordSetLid(const QRectF& box, double unit);
QPainterPath commentFold(const QRectF& box, double unit);
QPainterPath logHeader(const QRectF& box, double unit);

}  // namespace orvent::qt
