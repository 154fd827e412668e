#pragma once

#include <QLineF>
#include <vector>

#include "canvas/canvas.h"
#include "qt/canvas/paint_context.h"

namespace orvent::qt {

/// Cuts the line to the rectangle; false when no part of it lies inside. A cut start moves by whole multiples of
/// `period` from the true start, so that dashes stay where they were.
bool cutTo(QLineF& line, const QRectF& area, double period);

/// Gathers edges by pen and then paints them: lines first, then start marks and arrow heads.
class EdgePainter {
  public:
    /// Only what lies in `area` (pixels) is drawn; what is not lit is faint.
    EdgePainter(const PaintContext& context, const canvas::Canvas& canvas, const QRectF& area, canvas::Light light = {})
        : context_(context), canvas_(canvas), area_(area), light_(std::move(light)) {}

    void add(const canvas::LinesD& edge);
    void paint();

  private:
    struct Run {
        QRgb colour;
        int style;
        double width;
        std::vector<QLineF> lines;
    };
    struct Mark {
        QRgb colour;
        QPolygonF shape;
    };

    struct Ring {
        QRgb colour;
        QPointF middle;
        double radius;
    };

    std::vector<QLineF>& run(QRgb colour, int style, double width);
    void addSegment(QPointF from, QPointF to, QRgb colour, int style, double width);
    void addThin(const canvas::LinesD& edge, QRgb colour);
    void addArrow(const canvas::LinesD& edge, const canvas::LabelsD& target, QRgb colour);
    void addRing(const canvas::LinesD& edge, const canvas::LabelsD& target, QRgb colour);
    void addPartOfMark(const canvas::LinesD& edge, const canvas::LabelsD& source, QRgb colour);

    const PaintContext& context_;
    const canvas::Canvas& canvas_;
    QRectF area_;
    canvas::Light light_;
    std::vector<Run> runs_;
    std::vector<Mark> marks_;
    std::vector<Ring> rings_;
};

/// Paints the handles of a selected or pointed-at edge, above the nodes.
void paintHandles(const PaintContext& context, const canvas::LinesD& edge, bool strong);

}  // namespace orvent::qt
