// Making and removing the edges of a canvas.

#include "canvas/canvas.h"
#include "canvas/lines.h"

namespace orvent::canvas {

LinesD& LinesCollection::show(LinesD& edge) {
    edge.told_ = true;
    edge.changed();
    return edge;
}

LinesD& LinesCollection::make(EdgeTypeCode EdgeType) {
    const EdgeNumber index = canvas_.LinesNo = numberAfter(canvas_.LinesNo);
    LinesD& edge = append(index, std::make_unique<LinesD>(static_cast<Graph&>(canvas_), index));
    edge.edgeType_ = EdgeType;
    edge.takeStyle();
    return edge;
}

LinesD& LinesCollection::restore(EdgeNumber index, EdgeTypeCode EdgeType) {
    LinesD& edge = append(index, std::make_unique<LinesD>(static_cast<Graph&>(canvas_), index));
    edge.edgeType_ = EdgeType;
    edge.takeStyle();
    edge.told_ = true;
    return edge;
}

LinesD& LinesCollection::Add(Point start, Point middle, Point end, NodeNumber FromLabel, EdgeTypeCode EdgeType,
                             std::int16_t FromGrabbingPoint) {
    LinesD& edge = make(EdgeType);
    edge.at(EdgeEnd::start) = {FromLabel, FromGrabbingPoint, start};
    edge.middle_ = middle;
    edge.at(EdgeEnd::end).place = end;
    return show(edge);
}

LinesD* LinesCollection::addFullLine(NodeNumber FromLabel, std::int16_t FromGrabbingPoint, NodeNumber ToLabel,
                                     std::int16_t ToGrabbingPoint, EdgeTypeCode EdgeType, AngleCode Angle,
                                     std::int32_t Color) {
    LabelsD* from = canvas_.Labels.byIndex(FromLabel);
    LabelsD* to = canvas_.Labels.byIndex(ToLabel);
    if (!from || !to) {
        return nullptr;
    }
    LinesD& edge = make(EdgeType);
    edge.lead(EdgeEnd::start, *from, FromGrabbingPoint);
    edge.lead(EdgeEnd::end, *to, ToGrabbingPoint);
    edge.middle_ = between(edge.start().place, edge.end().place);
    edge.takeAngle(Angle);
    edge.color_ = Color;
    return &show(edge);
}

LinesD* LinesCollection::FindConnectingLine(NodeNumber FromLabel, NodeNumber ToLabel, EdgeTypeCode LineType,
                                            bool andRemove) {
    const LabelsD* from = canvas_.Labels.byIndex(FromLabel);
    if (!from) {
        return nullptr;
    }
    for (const EdgeNumber number : from->StartingLines()) {
        LinesD* edge = byIndex(number);
        if (edge && edge->ToLabel() == ToLabel && edge->EdgeType() == LineType) {
            if (!andRemove) {
                return edge;
            }
            RemoveFull(number);
            return nullptr;
        }
    }
    return nullptr;
}

std::unique_ptr<LinesD> LinesCollection::Remove(EdgeNumber index) {
    std::unique_ptr<LinesD> edge = take(index);
    if (edge) {
        canvas_.forgetEdge(*edge);
        canvas_.listeners().tell([&edge](CanvasListener& listener) { listener.edgeRemoved(*edge); });
    }
    return edge;
}

std::unique_ptr<LinesD> LinesCollection::RemoveFull(EdgeNumber index) {
    if (LinesD* edge = byIndex(index)) {
        edge->leave(EdgeEnd::start);
        edge->leave(EdgeEnd::end);
    }
    return Remove(index);
}

void LinesCollection::Clear() {
    while (const LinesD* last = at(Count())) {
        RemoveFull(last->Index());
    }
}

}  // namespace orvent::canvas
