#pragma once

#include <QPainter>

#include "canvas/node_notes.h"
#include "canvas/tints.h"
#include "qt/canvas/pixels.h"
#include "qt/canvas/transform.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

/// How much of the picture is drawn: everything; no captions, arrow heads and smooth edges; filled boxes and lines of
/// one pixel.
enum class Detail { full, plain, coarse };

inline Detail detailAt(double scale) {
    return scale >= 0.4 ? Detail::full : scale >= 0.15 ? Detail::plain : Detail::coarse;
}

/// What every painter of a part of the picture needs.
struct PaintContext {
    QPainter& painter;
    const Transform& transform;
    const CanvasColours& colours;
    double pixelRatio;  ///< device pixels per pixel
    Detail detail;
    bool selection = true;                     ///< false on paper, where nothing is selected
    Pixels* image = nullptr;                   ///< what the painter paints on, if it can be written into straight
    const canvas::Tints* tints = nullptr;      ///< shades instead of the nodes' colours, if there are any
    const canvas::NodeNotes* notes = nullptr;  ///< at the nodes, if there are any

    /// A length given for scale 1, in pixels.
    double length(double pixels) const { return pixels * transform.scale; }
    /// The pen width for a line that is `pixels` wide at scale 1: whole device pixels, at least one.
    double penWidth(double pixels) const { return std::max(1.0, std::round(length(pixels) * pixelRatio)) / pixelRatio; }
    /// The coordinate moved to where a line of that pen width is sharp.
    double sharp(double at, double pen) const {
        const double half = std::lround(pen * pixelRatio) % 2 ? 0.5 : 0.0;
        return (std::round(at * pixelRatio - half) + half) / pixelRatio;
    }
    QPointF sharp(QPointF at, double pen) const { return {sharp(at.x(), pen), sharp(at.y(), pen)}; }
    QRectF sharp(const QRectF& box, double pen) const {
        return {sharp(box.topLeft(), pen), sharp(box.bottomRight(), pen)};
    }
};

}  // namespace orvent::qt
