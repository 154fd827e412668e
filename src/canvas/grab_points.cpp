// Where edges attach to a node, and which place the pointer means.

#include <algorithm>
#include <array>

#include "canvas/canvas.h"

namespace orvent::canvas {

namespace {

/// A grab point as shares of the box's width and height plus a clearance in twips.
struct GrabRow {
    float widthShare, heightShare;
    float dx, dy;
    std::string_view arrow;
};

constexpr float kClearance = 50;

constexpr std::array<GrabRow, 4> kOrdinary = {{
    {0.0F, 0.5F, -kClearance, 0, "ArrowR"},
    {0.5F, 0.0F, 0, -kClearance, "ArrowD"},
    {1.0F, 0.5F, kClearance, 0, "ArrowL"},
    {0.5F, 1.0F, 0, kClearance, "ArrowU"},
}};

constexpr std::array<GrabRow, 5> kActivityGrabs = {{
    {0.0F, 1.0F / 3, -kClearance, 0, "ArrowR"},
    {0.0F, 2.0F / 3, -kClearance, 0, "ArrowR"},
    {0.5F, 0.25F, kClearance, 0, "ArrowD"},
    {1.0F, 0.5F, kClearance, 0, "ArrowL"},
    {0.5F, 0.75F, kClearance, 0, "ArrowU"},
}};

const GrabRow* grabRow(NodeTypeCode nodeType, int point) {
    if (nodeType == NodeTypeActivity) {
        return point >= 1 && point <= 5 ? &kActivityGrabs[static_cast<std::size_t>(point - 1)] : nullptr;
    }
    return point >= 1 && point <= 4 ? &kOrdinary[static_cast<std::size_t>(point - 1)] : nullptr;
}

int ordinaryPointAt(float x, float y, float width, float height) {
    if (x < width / 4) {
        return 1;
    }
    if (x > width * 3 / 4) {
        return 3;
    }
    return y < height / 2 ? 2 : 4;
}

int activityPointAt(float x, float y, float width, float height) {
    if (x > width * 2 / 3) {
        return 4;
    }
    if (x < width / 3) {
        return y <= height / 2 ? 1 : 2;
    }
    return y < height / 2 ? 3 : 5;
}

}  // namespace

Point LabelsD::GrabPoint(int GrabbingPoint) const {
    const GrabRow* row = grabRow(nodeType_, GrabbingPoint);
    if (!row) {
        return {};
    }
    float heightShare = row->heightShare;
    const entities::ActivityProperties* held = activity();
    if (held && GrabbingPoint <= 2 && held->Act_SchemaNo == 1) {
        heightShare = 0.5F;  // one schema joins the two inputs
    }
    return {Left() + Width() * row->widthShare + row->dx, Top() + Height() * heightShare + row->dy};
}

std::string_view LabelsD::LineArrowDirection(int GrabbingPoint) const {
    const GrabRow* row = grabRow(nodeType_, GrabbingPoint);
    return row ? row->arrow : std::string_view();
}

Point LabelsD::DrawRect(float x, float y) {
    const int point = nodeType_ == NodeTypeActivity ? activityPointAt(x, y, Width(), Height())
                                                    : ordinaryPointAt(x, y, Width(), Height());
    graph_.grabPointMeant(point);
    return GrabPoint(point);
}

}  // namespace orvent::canvas
