#include "zoom/edge_strokes.h"

#include <map>
#include <tuple>

#include "zoom/expansion.h"

namespace orvent::zoom {

using canvas::LabelsD;
using canvas::LinesD;

namespace {

bool runsAsDrawn(const LinesD& edge, const LabelsD& target) {
    if (edge.EdgeType() == canvas::EdgeTypePartOf) {
        return edge.FromGrabbingPoint() == ownerGrabPoint(target) && edge.ToGrabbingPoint() == 2 &&
               edge.Angle() == canvas::AngleVerticalUp;
    }
    return edge.FromGrabbingPoint() == 3 && edge.ToGrabbingPoint() == 1 && edge.Angle() == canvas::AngleStraight;
}

bool isMade(const LinesD& edge) {
    return edge.EdgeType() == canvas::EdgeTypeReserved || edge.EdgeType() == canvas::EdgeTypeDerived;
}

}  // namespace

EdgeStrokes::EdgeStrokes(const ZoomView& view) {
    for (const LinesD& edge : view.Lines) {
        const LabelsD* from = view.Labels.byIndex(edge.FromLabel());
        const LabelsD* to = view.Labels.byIndex(edge.ToLabel());
        if (from && to && !isMade(edge) && !runsAsDrawn(edge, *to) && view.bearsName(*from) && view.bearsName(*to)) {
            strokes_.push_back({from->KeyName(),
                                to->KeyName(),
                                edge.EdgeType(),
                                edge.FromGrabbingPoint(),
                                edge.ToGrabbingPoint(),
                                edge.Angle(),
                                {edge.Xm(), edge.Ym()}});
        }
    }
}

void EdgeStrokes::restore(ZoomView& view) const {
    using Ends = std::tuple<canvas::NodeNumber, canvas::NodeNumber, canvas::EdgeTypeCode>;
    std::map<Ends, const Stroke*> byEnds;
    for (const Stroke& stroke : strokes_) {
        byEnds.emplace(Ends{view.NamesColl.Item(stroke.from), view.NamesColl.Item(stroke.to), stroke.kind}, &stroke);
    }
    if (byEnds.empty()) {
        return;
    }
    for (LinesD& edge : view.Lines) {
        const auto found = byEnds.find({edge.FromLabel(), edge.ToLabel(), edge.EdgeType()});
        if (found != byEnds.end()) {
            lead(edge, *found->second);
        }
    }
}

void EdgeStrokes::lead(LinesD& edge, const Stroke& stroke) {
    edge.setGrabPoint(canvas::EdgeEnd::start, stroke.fromGrab);
    edge.setGrabPoint(canvas::EdgeEnd::end, stroke.toGrab);
    edge.setAngle(canvas::AngleStraight);
    edge.setAngle(stroke.angle);
    if (stroke.angle == canvas::AngleNone && (edge.Xm() != stroke.middle.x || edge.Ym() != stroke.middle.y)) {
        edge.placeMiddle(stroke.middle);
    }
}

}  // namespace orvent::zoom
