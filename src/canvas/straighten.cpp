#include "canvas/straighten.h"

#include <cmath>
#include <limits>
#include <string_view>

namespace orvent::canvas {

namespace {

constexpr std::int16_t kMostPoints = 5;
constexpr std::int16_t kDataOut = 4, kControlOut = 3, kControlIn = 5;

template <class May>
GrabPair shortest(const LabelsD& source, const LabelsD& target, May may) {
    GrabPair best;
    float least = std::numeric_limits<float>::infinity();
    for (std::int16_t from = 1; from <= kMostPoints; ++from) {
        for (std::int16_t to = 1; to <= kMostPoints; ++to) {
            if (source.LineArrowDirection(from).empty() || target.LineArrowDirection(to).empty() || !may(from, to)) {
                continue;
            }
            const Point a = source.GrabPoint(from);
            const Point b = target.GrabPoint(to);
            const float way = std::hypot(a.x - b.x, a.y - b.y);
            if (way < least) {
                least = way;
                best = {from, to};
            }
        }
    }
    return best;
}

/// Whether an end at a node may go from one of its grab points to another one.
bool meansTheSame(const LabelsD& node, std::int16_t point, std::int16_t other) {
    return node.NodeType() != NodeTypeActivity || point == other || (point <= 2 && other <= 2);
}

/// The grab point that tells what an edge carries away from its source.
std::int16_t meantAtSource(const LabelsD& source, const LabelsD& target, const LinesD& edge) {
    const bool flow = edge.EdgeType() == EdgeTypeProvider && source.NodeType() == NodeTypeActivity;
    const bool control = target.NodeType() == NodeTypeActivity && edge.ToGrabbingPoint() == kControlIn;
    return flow && !control && edge.FromGrabbingPoint() == kControlOut ? kDataOut : edge.FromGrabbingPoint();
}

/// The direction in which an edge leaves a node at a grab point.
Point outwards(const LabelsD& node, std::int16_t point) {
    const std::string_view arrow = node.LineArrowDirection(point);  // towards the node
    return arrow == "ArrowR"   ? Point{-1, 0}
           : arrow == "ArrowD" ? Point{0, -1}
           : arrow == "ArrowL" ? Point{1, 0}
                               : Point{0, 1};
}

/// Whether the way from a grab point to another place runs along the node's side or back across its box.
bool runsAside(const LabelsD& node, std::int16_t point, Point to) {
    constexpr float kLeastOutwards = 0.2F;  // of the way's length
    const Point from = node.GrabPoint(point), out = outwards(node, point);
    const float dx = to.x - from.x, dy = to.y - from.y;
    return dx * out.x + dy * out.y < kLeastOutwards * std::hypot(dx, dy);
}

bool standsForSomething(const LinesD& edge) {
    return edge.EdgeType() == EdgeTypeProvider || edge.EdgeType() == EdgeTypeRegulator ||
           edge.EdgeType() == EdgeTypeDescription;
}

}  // namespace

GrabPair nearestGrabPoints(const LabelsD& source, const LabelsD& target) {
    return shortest(source, target, [](std::int16_t, std::int16_t) { return true; });
}

GrabPair straightWay(const Canvas& canvas, const LinesD& edge) {
    const LabelsD* source = canvas.Labels.byIndex(edge.FromLabel());
    const LabelsD* target = canvas.Labels.byIndex(edge.ToLabel());
    const GrabPair now{edge.FromGrabbingPoint(), edge.ToGrabbingPoint()};
    if (!source || !target) {
        return now;
    }
    const std::int16_t meant = meantAtSource(*source, *target, edge);
    const GrabPair best = shortest(*source, *target, [&](std::int16_t from, std::int16_t to) {
        return meansTheSame(*source, meant, from) && meansTheSame(*target, now.to, to);
    });
    return best.from ? best : now;
}

bool isCrooked(const Canvas& canvas, const LinesD& edge) {
    const LabelsD* source = canvas.Labels.byIndex(edge.FromLabel());
    const LabelsD* target = canvas.Labels.byIndex(edge.ToLabel());
    const GrabPair now{edge.FromGrabbingPoint(), edge.ToGrabbingPoint()};
    return source && target && straightWay(canvas, edge) != now &&
           (runsAside(*source, now.from, target->GrabPoint(now.to)) ||
            runsAside(*target, now.to, source->GrabPoint(now.from)));
}

void straighten(const Canvas& canvas, LinesD& edge) {
    const GrabPair way = straightWay(canvas, edge);
    edge.setGrabPoint(EdgeEnd::start, way.from);
    edge.setGrabPoint(EdgeEnd::end, way.to);
    if (edge.Angle() != AngleStraight) {
        edge.setAngle(AngleStraight);
    }
}

void straightenSelected(Canvas& canvas) {
    const ManyChanges many(canvas);
    const bool all = canvas.SelectedLines.Count() == 0 && canvas.SelectedLabels.Count() == 0;
    for (LinesD& edge : canvas.Lines) {
        const bool atSelected =
            canvas.SelectedLabels.Item(edge.FromLabel()) || canvas.SelectedLabels.Item(edge.ToLabel());
        if (edge.Selected() || (standsForSomething(edge) && edge.Visible() && (all || atSelected))) {
            straighten(canvas, edge);
        }
    }
}

}  // namespace orvent::canvas
