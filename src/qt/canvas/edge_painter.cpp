#include "qt/canvas/edge_painter.h"

#include <QVarLengthArray>
#include <array>
#include <cmath>
#include <string_view>

#include "qt/canvas/node_shapes.h"
#include "qt/theme/blend.h"
#include "qt/theme/model_colour.h"
#include "qt/theme/node_colours.h"

namespace orvent::qt {

namespace {

constexpr double kClearance = 50;      // twips from a grab point to its box
constexpr double kLeastInwards = 0.2;  // of an arrow: below, its line runs along the side that it meets
constexpr double kHaloWidth = 6;
constexpr int kHalo = 0;  // no border style of the model

struct DashRow {
    std::int16_t style;
    std::array<double, 4> pattern;  // in pen widths of 1 at scale 1
    int parts;
};

constexpr std::array<DashRow, 3> kDashes = {{
    {canvas::BorderDashed, {6, 4, 0, 0}, 2},
    {canvas::BorderDotted, {1.5, 3.5, 0, 0}, 2},
    {canvas::BorderDashDot, {7, 3, 1.5, 3}, 4},
}};

const DashRow* dashRow(int style) {
    for (const DashRow& row : kDashes) {
        if (row.style == style) {
            return &row;
        }
    }
    return nullptr;
}

struct ArrowRow {
    std::string_view image;
    QPointF direction;
};

const std::array<ArrowRow, 4> kArrows = {{
    {"ArrowR", {1, 0}},
    {"ArrowD", {0, 1}},
    {"ArrowL", {-1, 0}},
    {"ArrowU", {0, -1}},
}};

QPointF directionOf(std::string_view image) {
    for (const ArrowRow& row : kArrows) {
        if (row.image == image) {
            return row.direction;
        }
    }
    return {};
}

/// From a grab point towards its box, in twips, up to the outline. The upper and lower grab points of an activity lie
/// inside its outline already.
QPointF towardsBox(const canvas::LabelsD& node, int point) {
    const QPointF direction = directionOf(node.LineArrowDirection(point));
    if (node.figure() == canvas::Figure::funnel && direction.y() != 0) {
        return direction * (kFunnelWaist - 0.25) * static_cast<double>(node.Height());
    }
    return direction * kClearance;
}

canvas::Point moved(canvas::Point place, QPointF by) {
    return {place.x + static_cast<float>(by.x()), place.y + static_cast<float>(by.y())};
}

/// Whether a line goes away from a box as its grab point does. Then it needs no bend there.
bool leavesAtOnce(QPointF inwards, canvas::Point grabPoint, canvas::Point next) {
    const QPointF way(next.x - grabPoint.x, next.y - grabPoint.y);
    return -QPointF::dotProduct(way, inwards) >
           kLeastInwards * std::hypot(way.x(), way.y()) * std::hypot(inwards.x(), inwards.y());
}

/// The line as it is drawn: as a whole, so that its pixels do not depend on what of it is seen, unless it is so long
/// that the numbers would lose their precision.
QLineF drawn(const QLineF& whole, const QLineF& seen) {
    constexpr double kFar = 1e6;  // pixels
    const bool far =
        std::max({std::abs(whole.x1()), std::abs(whole.y1()), std::abs(whole.x2()), std::abs(whole.y2())}) > kFar;
    return far ? seen : whole;
}

}  // namespace

bool cutTo(QLineF& line, const QRectF& area, double period) {
    if (!std::isfinite(line.dx()) || !std::isfinite(line.dy())) {
        return false;
    }
    double from = 0;
    double to = 1;
    const double dx = line.dx();
    const double dy = line.dy();
    const std::array<std::array<double, 2>, 4> sides = {{{-dx, line.x1() - area.left()},
                                                         {dx, area.right() - line.x1()},
                                                         {-dy, line.y1() - area.top()},
                                                         {dy, area.bottom() - line.y1()}}};
    for (const auto& [slope, room] : sides) {
        if (slope == 0) {
            if (room < 0) {
                return false;
            }
        } else if (slope < 0) {
            from = std::max(from, room / slope);
        } else {
            to = std::min(to, room / slope);
        }
    }
    if (from > to) {
        return false;
    }
    const double length = period > 0 ? line.length() : 0;
    if (length > 0) {
        from = std::floor(from * length / period) * period / length;
    }
    line = QLineF(line.pointAt(from), line.pointAt(to));
    return true;
}

std::vector<QLineF>& EdgePainter::run(QRgb colour, int style, double width) {
    for (Run& run : runs_) {
        if (run.colour == colour && run.style == style && run.width == width) {
            return run.lines;
        }
    }
    runs_.push_back({colour, style, width, {}});
    return runs_.back().lines;
}

void EdgePainter::addSegment(QPointF from, QPointF to, QRgb colour, int style, double width) {
    QLineF line(from, to);
    const DashRow* dashes = context_.detail == Detail::coarse ? nullptr : dashRow(style);
    double period = 0;
    for (int i = 0; dashes && i < dashes->parts; ++i) {
        period += context_.length(dashes->pattern[static_cast<std::size_t>(i)]);
    }
    if (from != to && cutTo(line, area_, period)) {
        run(colour, dashes ? style : (style == kHalo ? kHalo : canvas::BorderSolid), width)
            .push_back(dashes ? line : drawn(QLineF(from, to), line));
    }
}

/// A solid line of one device pixel, written at once.
void EdgePainter::addThin(const canvas::LinesD& edge, QRgb colour) {
    const auto draw = [&](QPointF from, QPointF to) {
        QLineF seen(from, to);
        if (cutTo(seen, area_, 0)) {
            context_.image->line(drawn(QLineF(from, to), seen), colour);
        }
    };
    const QPointF start = context_.transform.toPixels(canvas::Point{edge.X1(), edge.Y1()});
    const QPointF middle = context_.transform.toPixels(canvas::Point{edge.Xm(), edge.Ym()});
    if (start != middle) {
        draw(start, middle);
    }
    draw(middle, context_.transform.toPixels(canvas::Point{edge.X2(), edge.Y2()}));
}

void EdgePainter::add(const canvas::LinesD& edge) {
    const QColor plain = edge.Color() == 0 ? context_.colours.line : fromModel(edge.Color());
    const bool faint = !light_.isEmpty() && !light_.holdsEdge(edge.Index());
    const bool selected = edge.Selected() && context_.selection;
    const QColor shown = selected ? context_.colours.accent : plain;
    const QRgb colour = (faint ? blend(shown, context_.colours.background, kDimmedShare) : shown).rgb();
    const bool full = context_.detail == Detail::full;
    if (context_.image && !full && (context_.detail == Detail::coarse || !dashRow(edge.BorderStyle))) {
        addThin(edge, colour);
        return;
    }
    const double width = context_.penWidth(full ? edge.BorderWidth : 0);
    const auto place = [&](canvas::Point twips) { return context_.sharp(context_.transform.toPixels(twips), width); };
    const canvas::LabelsD* from = full ? canvas_.Labels.byIndex(edge.FromLabel()) : nullptr;
    const canvas::LabelsD* to = full ? canvas_.Labels.byIndex(edge.ToLabel()) : nullptr;
    const bool partOf = edge.EdgeType() == canvas::EdgeTypePartOf;
    // A grab point only stands near its box; the line runs on to the outline, unless a mark fills the gap.
    const canvas::Point start{edge.X1(), edge.Y1()};
    const canvas::Point middle{edge.Xm(), edge.Ym()};
    const canvas::Point end{edge.X2(), edge.Y2()};
    const bool reachesBack = from && !partOf;
    const bool reachesOn = to && edge.arrowImage().empty();
    const bool straight = start.x == middle.x && start.y == middle.y;
    const QPointF back = reachesBack ? towardsBox(*from, edge.FromGrabbingPoint()) : QPointF();
    const QPointF on = reachesOn ? towardsBox(*to, edge.ToGrabbingPoint()) : QPointF();
    QVarLengthArray<QPointF, 5> path;
    path.push_back(place(moved(start, back)));
    if (!straight) {
        if (reachesBack && !leavesAtOnce(back, start, middle)) {
            path.push_back(place(start));
        }
        path.push_back(place(middle));
    }
    if (!reachesOn || straight || !leavesAtOnce(on, end, middle)) {
        path.push_back(place(end));
    }
    if (reachesOn) {
        path.push_back(place(moved(end, on)));
    }
    const QColor accent = context_.colours.accent;
    for (qsizetype i = 0; i + 1 < path.size(); ++i) {
        if (selected && full) {
            const QRgb halo = qRgba(accent.red(), accent.green(), accent.blue(), 70);
            addSegment(path[i], path[i + 1], halo, kHalo, context_.length(kHaloWidth));
        }
        addSegment(path[i], path[i + 1], colour, edge.BorderStyle, width);
    }
    if (from && !edge.startImage().empty()) {
        addPartOfMark(edge, *from, colour);
    }
    if (to && !edge.arrowImage().empty()) {
        addArrow(edge, *to, colour);
    } else if (to && edge.EdgeType() == canvas::EdgeTypeRegulator) {
        addRing(edge, *to, colour);
    }
}

void EdgePainter::addArrow(const canvas::LinesD& edge, const canvas::LabelsD& target, QRgb colour) {
    QPointF direction = directionOf(edge.arrowImage());
    QPointF reach = towardsBox(target, edge.ToGrabbingPoint());
    QPointF last(edge.X2() - edge.Xm(), edge.Y2() - edge.Ym());
    if (last.isNull()) {
        last = QPointF(edge.X2() - edge.X1(), edge.Y2() - edge.Y1());
    }
    const double length = std::hypot(last.x(), last.y());
    const double inwards = length > 0 ? QPointF::dotProduct(last, direction) / length : 0;
    if (inwards > kLeastInwards) {
        // Along the line, as far as it takes to the box.
        direction = last / length;
        reach = direction * (std::hypot(reach.x(), reach.y()) / inwards);
    }
    const QPointF tip = context_.transform.toPixels(moved({edge.X2(), edge.Y2()}, reach));
    const QPointF base = tip - direction * context_.length(9.5);
    const QPointF side = QPointF(-direction.y(), direction.x()) * context_.length(4.6);
    marks_.push_back({colour, QPolygonF({tip, base + side, base - side})});
}

// What is regulated: a ring that touches the box.
void EdgePainter::addRing(const canvas::LinesD& edge, const canvas::LabelsD& target, QRgb colour) {
    const QPointF direction = directionOf(target.LineArrowDirection(edge.ToGrabbingPoint()));
    const QPointF tip =
        context_.transform.toPixels(moved({edge.X2(), edge.Y2()}, towardsBox(target, edge.ToGrabbingPoint())));
    const double radius = context_.length(3);
    rings_.push_back({colour, tip - direction * radius, radius});
}

// A diamond whose inner tip touches the box.
void EdgePainter::addPartOfMark(const canvas::LinesD& edge, const canvas::LabelsD& source, QRgb colour) {
    const QPointF inwards = directionOf(source.LineArrowDirection(edge.FromGrabbingPoint()));
    const canvas::Point reached = moved({edge.X1(), edge.Y1()}, towardsBox(source, edge.FromGrabbingPoint()));
    const QPointF tip = context_.transform.toPixels(reached);
    const QPointF along = (inwards.isNull() ? QPointF(-1, 0) : inwards) * -context_.length(4.5);
    const QPointF side = QPointF(along.y(), along.x()) * 0.7;
    marks_.push_back({colour, QPolygonF({tip, tip + along + side, tip + 2 * along, tip + along - side})});
}

void EdgePainter::paint() {
    QPainter& painter = context_.painter;
    const bool full = context_.detail == Detail::full;
    for (const bool halo : {true, false}) {
        for (const Run& run : runs_) {
            if ((run.style == kHalo) != halo) {
                continue;
            }
            if (context_.image && run.style == canvas::BorderSolid) {
                for (const QLineF& line : run.lines) {
                    context_.image->smoothLine(line, run.width, run.colour);
                }
                continue;
            }
            QPen pen(QColor::fromRgba(run.colour), run.width);
            // A round cap would cost the toolkit's fast way for wide lines; a square one joins right angles just as
            // well.
            pen.setCapStyle(full ? Qt::SquareCap : Qt::FlatCap);
            if (const DashRow* dashes = dashRow(run.style)) {
                QList<qreal> pattern;
                for (int i = 0; i < dashes->parts; ++i) {
                    pattern << context_.length(dashes->pattern[static_cast<std::size_t>(i)]) / run.width;
                }
                pen.setDashPattern(pattern);
                pen.setCapStyle(Qt::FlatCap);
            }
            painter.setPen(pen);
            painter.drawLines(run.lines.data(), static_cast<int>(run.lines.size()));
        }
    }
    painter.setPen(Qt::NoPen);
    for (const Mark& mark : marks_) {
        if (painter.brush().color().rgba() != mark.colour || painter.brush().style() == Qt::NoBrush) {
            painter.setBrush(QColor::fromRgba(mark.colour));
        }
        painter.drawPolygon(mark.shape);
    }
    painter.setBrush(context_.colours.background);
    for (const Ring& ring : rings_) {
        painter.setPen(QPen(QColor::fromRgba(ring.colour), context_.penWidth(1)));
        painter.drawEllipse(ring.middle, ring.radius, ring.radius);
    }
}

void paintHandles(const PaintContext& context, const canvas::LinesD& edge, bool strong) {
    QPainter& painter = context.painter;
    const double pen = context.penWidth(strong ? 1.5 : 1);
    const double radius = std::max(2.0, context.length(3));
    painter.setPen(QPen(strong ? context.colours.accent : context.colours.outline, pen));
    painter.setBrush(context.colours.handleFill);
    const auto handle = [&](float x, float y, bool round) {
        const QPointF at = context.sharp(context.transform.toPixels(canvas::Point{x, y}), pen);
        const QRectF box(at.x() - radius, at.y() - radius, 2 * radius, 2 * radius);
        round ? painter.drawEllipse(box) : painter.drawRoundedRect(box, 1, 1);
    };
    handle(edge.X1(), edge.Y1(), false);
    handle(edge.X2(), edge.Y2(), false);
    if (edge.middleHandleVisible()) {
        handle(edge.Xm(), edge.Ym(), true);
    }
}

}  // namespace orvent::qt
