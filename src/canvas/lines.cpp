#include "canvas/lines.h"

#include <array>

#include "canvas/canvas.h"

namespace orvent::canvas {

namespace {

constexpr std::array<EdgeStyle, 6> kStyles = {{
    {BorderSolid, 2, true},    // provider
    {BorderSolid, 1, false},   // part of
    {BorderDashed, 1, true},   // reserved
    {BorderDashed, 1, false},  // regulator
    {BorderDotted, 1, true},   // description
    {BorderDashDot, 1, true},  // derived
}};

Point between(Point a, Point b) {
    return {(a.x + b.x) / 2, (a.y + b.y) / 2};
}

}  // namespace

EdgeStyle edgeStyle(EdgeTypeCode edgeType) {
    const auto at = static_cast<std::size_t>(edgeType);
    return at < kStyles.size() ? kStyles[at] : EdgeStyle{BorderSolid, 1, false};
}

void LinesD::changed() {
    if (told_) {
        canvas_.tellChanged(*this);
    }
}

void LinesD::setStart(Point value) {
    start_ = value;
    applyAngle(angle_);
    changed();
}

void LinesD::setEnd(Point value) {
    end_ = value;
    applyAngle(angle_);
    changed();
}

void LinesD::setMiddle(Point value) {
    middle_ = value;
    changed();
}

void LinesD::setEdgeType(EdgeTypeCode value) {
    edgeType_ = value;
    BorderStyle = edgeStyle(value).BorderStyle;
    BorderWidth = edgeStyle(value).BorderWidth;
    changed();
}

void LinesD::setAngle(AngleCode value) {
    const AngleCode former = angle_;
    angle_ = value;
    applyAngle(former);
    changed();
}

void LinesD::applyAngle(AngleCode former) {
    // Only the vertical order of the ends decides; the horizontal one makes no difference.
    const bool rises = end_.y <= start_.y;
    switch (angle_) {
        case AngleNone:
            if (former == AngleStraight) {
                // A straightened edge regains a handle that can be taken.
                middle_ = between(start_, end_);
            }
            break;
        case AngleVerticalUp:
            middle_ = rises ? Point{start_.x, end_.y} : Point{end_.x, start_.y};
            break;
        case AngleVerticalDown:
            middle_ = rises ? Point{end_.x, start_.y} : Point{start_.x, end_.y};
            break;
        case AngleStraight:
            middle_ = start_;
            break;
        default:
            break;
    }
}

void LinesD::setToGrabbingPoint(std::int16_t value) {
    toGrabbingPoint_ = value;
    if (edgeStyle(edgeType_).arrow) {
        const LabelsD* target = canvas_.Labels.byIndex(ToLabel);
        arrow_ = target ? target->LineArrowDirection(value) : std::string_view();
    }
    changed();
}

void LinesD::setVisible(bool value) {
    visible_ = value;
    changed();
}

void LinesD::setHighLighted(bool value) {
    highLighted_ = value;
    changed();
}

void LinesD::setSelected(bool value) {
    selected_ = value;
    changed();
}

void LinesD::setColor(std::int32_t value) {
    color_ = value;
    changed();
}

LinesD& LinesCollection::Add(Point start, Point middle, Point end, std::int32_t FromLabel, EdgeTypeCode EdgeType) {
    return show(make(start, middle, end, FromLabel, EdgeType));
}

LinesD& LinesCollection::show(LinesD& edge) {
    edge.told_ = true;
    edge.changed();
    return edge;
}

LinesD& LinesCollection::make(Point start, Point middle, Point end, std::int32_t FromLabel, EdgeTypeCode EdgeType) {
    const std::int32_t index = ++canvas_.LinesNo;
    LinesD& edge = append(index, std::make_unique<LinesD>(canvas_, index));
    edge.setStart(start);
    edge.setMiddle(middle);
    edge.setEnd(end);
    edge.FromLabel = FromLabel;
    edge.setEdgeType(EdgeType);
    return edge;
}

LinesD* LinesCollection::addFullLine(std::int32_t FromLabel, std::int16_t FromGrabbingPoint, std::int32_t ToLabel,
                                     std::int16_t ToGrabbingPoint, EdgeTypeCode EdgeType, AngleCode Angle,
                                     std::int32_t Color) {
    LabelsD* from = canvas_.Labels.byIndex(FromLabel);
    LabelsD* to = canvas_.Labels.byIndex(ToLabel);
    if (!from || !to) {
        return nullptr;
    }
    const Point start = from->GrabPoint(FromGrabbingPoint);
    const Point end = to->GrabPoint(ToGrabbingPoint);
    LinesD& edge = make(start, between(start, end), end, FromLabel, EdgeType);
    edge.ToLabel = ToLabel;
    edge.FromGrabbingPoint = FromGrabbingPoint;
    edge.setToGrabbingPoint(ToGrabbingPoint);
    edge.setAngle(Angle);
    edge.setColor(Color);
    from->StartingLines.Add(edge.Index());
    to->EndingLines.Add(edge.Index());
    return &show(edge);
}

LinesD* LinesCollection::FindConnectingLine(std::int32_t FromLabel, std::int32_t ToLabel, EdgeTypeCode LineType,
                                            bool andRemove) {
    const LabelsD* from = canvas_.Labels.byIndex(FromLabel);
    if (!from) {
        return nullptr;
    }
    for (const std::int32_t number : from->StartingLines) {
        LinesD* edge = byIndex(number);
        if (edge && edge->ToLabel == ToLabel && edge->EdgeType() == LineType) {
            if (!andRemove) {
                return edge;
            }
            RemoveFull(number);
            return nullptr;
        }
    }
    return nullptr;
}

void LinesCollection::Remove(std::int32_t index) {
    if (const std::unique_ptr<LinesD> edge = take(index)) {
        canvas_.forgetEdge(*edge);
        canvas_.listeners().tell([&edge](CanvasListener& listener) { listener.edgeRemoved(*edge); });
    }
}

void LinesCollection::RemoveFull(std::int32_t index) {
    const LinesD* edge = byIndex(index);
    if (!edge) {
        return;
    }
    if (LabelsD* from = canvas_.Labels.byIndex(edge->FromLabel)) {
        from->StartingLines.Remove(index);
    }
    if (LabelsD* to = canvas_.Labels.byIndex(edge->ToLabel)) {
        to->EndingLines.Remove(index);
    }
    Remove(index);
}

void LinesCollection::Clear() {
    while (const LinesD* last = at(Count())) {
        RemoveFull(last->Index());
    }
}

}  // namespace orvent::canvas
