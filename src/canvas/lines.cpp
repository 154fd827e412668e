#include "canvas/lines.h"

#include <array>
#include <utility>

#include "canvas/graph.h"
#include "canvas/labels.h"

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

}  // namespace

EdgeStyle edgeStyle(EdgeTypeCode edgeType) {
    const auto at = static_cast<std::size_t>(edgeType);
    return at < kStyles.size() ? kStyles[at] : EdgeStyle{BorderSolid, 1, false};
}

/// Something has changed that a scenario keeps.
void LinesD::changed() {
    if (told_) {
        graph_.touch(*this);
    }
    lookChanged();
}

void LinesD::lookChanged() {
    if (told_) {
        graph_.tellChanged(*this);
    }
}

void LinesD::setStart(Point value) {
    at(EdgeEnd::start).place = value;
    applyAngle(angle_);
    changed();
}

void LinesD::setEnd(Point value) {
    at(EdgeEnd::end).place = value;
    applyAngle(angle_);
    changed();
}

void LinesD::setMiddle(Point value) {
    middle_ = value;
    changed();
}

void LinesD::placeMiddle(Point value) {
    middlePlaced_ = true;
    setMiddle(value);
}

void LinesD::centreMiddle() {
    const Point centre = between(start().place, end().place);
    if (angle_ == AngleNone && !middlePlaced_ && (middle_.x != centre.x || middle_.y != centre.y)) {
        setMiddle(centre);
    }
}

void LinesD::takeStyle() {
    const EdgeStyle style = edgeStyle(edgeType_);
    BorderStyle = style.BorderStyle;
    BorderWidth = style.BorderWidth;
}

void LinesD::setAngle(AngleCode value) {
    takeAngle(value);
    changed();
}

void LinesD::takeAngle(AngleCode value) {
    const AngleCode former = std::exchange(angle_, value);
    if (value >= AngleNone && value <= AngleStraight) {
        middleHandle_ = value == AngleNone;
        const bool corner = former == AngleVerticalUp || former == AngleVerticalDown;
        middlePlaced_ = former != AngleStraight && (middlePlaced_ || (corner && value == AngleNone));
    }
    applyAngle(former);
}

void LinesD::applyAngle(AngleCode former) {
    const Point from = start().place;
    const Point to = end().place;
    // Only the vertical order of the ends decides; the horizontal one makes no difference.
    const bool rises = to.y <= from.y;
    switch (angle_) {
        case AngleNone:
            if (former == AngleStraight) {
                // A straightened edge regains a handle that can be taken.
                middle_ = between(from, to);
            }
            break;
        case AngleVerticalUp:
            middle_ = rises ? Point{from.x, to.y} : Point{to.x, from.y};
            break;
        case AngleVerticalDown:
            middle_ = rises ? Point{to.x, from.y} : Point{from.x, to.y};
            break;
        case AngleStraight:
            middle_ = from;
            break;
        default:
            break;
    }
}

void LinesD::attach(EdgeEnd which, LabelsD& node, std::int16_t grabPoint) {
    leave(which);
    lead(which, node, grabPoint);
    changed();
}

void LinesD::detach(EdgeEnd which) {
    leave(which);
    at(which).label = {};
    changed();
}

void LinesD::setGrabPoint(EdgeEnd which, std::int16_t grabPoint) {
    const LabelsD* node = graph_.nodeAt(at(which).label);
    if (node && at(which).grabPoint != grabPoint) {
        take(which, *node, grabPoint);
        changed();
    }
}

void LinesD::lead(EdgeEnd which, LabelsD& node, std::int16_t grabPoint) {
    node.linesAt(which).Add(index_);
    take(which, node, grabPoint);
}

void LinesD::take(EdgeEnd which, const LabelsD& node, std::int16_t grabPoint) {
    at(which) = {node.Index(), grabPoint, node.GrabPoint(grabPoint)};
    if (which == EdgeEnd::end && edgeStyle(edgeType_).arrow) {
        arrow_ = node.LineArrowDirection(grabPoint);
    }
    applyAngle(angle_);
}

void LinesD::leave(EdgeEnd which) {
    if (LabelsD* node = graph_.nodeAt(at(which).label)) {
        node->linesAt(which).Remove(index_);
    }
}

void LinesD::setVisible(bool value) {
    visible_ = value;
    lookChanged();
}

void LinesD::setHighLighted(bool value) {
    highLighted_ = value;
    lookChanged();
}

void LinesD::setSelected(bool value) {
    selected_ = value;
    lookChanged();
}

}  // namespace orvent::canvas
