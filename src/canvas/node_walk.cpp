#include "canvas/node_walk.h"

#include <cmath>
#include <limits>
#include <vector>

namespace orvent::canvas {

namespace {

// A node beside the way counts as so much farther, so that a row or column is followed first.
constexpr float kAsideWeight = 3;

Point middle(const LabelsD& node) {
    return {node.Left() + node.Width() / 2, node.Top() + node.Height() / 2};
}

/// How far it is from one place to the other for a walk in that direction; nothing counts behind the start.
float cost(Point from, Point to, Direction direction) {
    const float dx = to.x - from.x;
    const float dy = to.y - from.y;
    const bool across = direction == Direction::left || direction == Direction::right;
    const float ahead =
        (across ? dx : dy) * (direction == Direction::left || direction == Direction::up ? -1.0F : 1.0F);
    const float aside = std::abs(across ? dy : dx);
    return ahead > 0 ? ahead + kAsideWeight * aside : std::numeric_limits<float>::infinity();
}

template <class Cost>
LabelsD* cheapest(Canvas& canvas, Cost costOf) {
    LabelsD* best = nullptr;
    float least = std::numeric_limits<float>::infinity();
    for (LabelsD& node : canvas.Labels) {
        const float here = node.Visible() ? costOf(node) : std::numeric_limits<float>::infinity();
        if (here < least) {
            least = here;
            best = &node;
        }
    }
    return best;
}

}  // namespace

LabelsD* walk(Canvas& canvas, Direction direction) {
    const std::vector<NodeNumber> selected = canvas.SelectedLabels.members();
    const LabelsD* start = selected.empty() ? nullptr : canvas.Labels.byIndex(selected.back());
    LabelsD* next =
        start ? cheapest(canvas, [&](const LabelsD& node) { return cost(middle(*start), middle(node), direction); })
              : cheapest(canvas, [](const LabelsD& node) { return node.Top() + node.Left(); });
    if (next) {
        canvas.ClearCrop();
        canvas.SelectedLines.Clear();
        canvas.SelectedLabels.Add(next->Index());
        canvas.ActiveLabel = next->Index();
    }
    return next;
}

void selectAllNodes(Canvas& canvas) {
    canvas.SelectedLines.Clear();
    for (const LabelsD& node : canvas.Labels) {
        if (node.Visible()) {
            canvas.SelectedLabels.Add(node.Index());
        }
    }
}

}  // namespace orvent::canvas
