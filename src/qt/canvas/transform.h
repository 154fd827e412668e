#pragma once

#include <QPointF>
#include <QRectF>
#include <cmath>

#include "canvas/point.h"
#include "qt/canvas/extent.h"

namespace orvent::qt {

inline constexpr double kTwipsPerPixel = 15;

/// From twips of the picture to pixels of the viewport and back; the only place that knows how they are related.
struct Transform {
    double scale = 1;  ///< of the view; 1 shows 15 twips as a pixel
    QPointF origin;    ///< the viewport's top left corner, in pixels from the picture's origin

    double pixels(double twips) const { return twips / kTwipsPerPixel * scale; }
    QPointF toPixels(canvas::Point place) const { return QPointF(pixels(place.x), pixels(place.y)) - origin; }
    QRectF toPixels(const Extent& area) const {
        return QRectF(toPixels(canvas::Point{area.left, area.top}), toPixels(canvas::Point{area.right, area.bottom}));
    }
    canvas::Point toTwips(QPointF place) const {
        const QPointF twips = (place + origin) * (kTwipsPerPixel / scale);
        return {static_cast<float>(twips.x()), static_cast<float>(twips.y())};
    }
    Extent toTwips(const QRectF& area) const {
        const canvas::Point a = toTwips(area.topLeft());
        const canvas::Point b = toTwips(area.bottomRight());
        return {a.x, a.y, b.x, b.y};
    }
};

}  // namespace orvent::qt
