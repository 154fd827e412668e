#include "canvas/node_moves.h"

#include <algorithm>
#include <optional>

#include "canvas/canvas.h"

namespace orvent::canvas {

namespace {

constexpr float kGap = 100;   // between a node that is placed and its neighbours
constexpr float kRing = 300;  // from one try to the next
constexpr int kRings = 40;

void centreMiddles(Canvas& canvas, const LabelsD& node) {
    for (const LineNumbers* lines : {&node.StartingLines(), &node.EndingLines()}) {
        for (const EdgeNumber number : *lines) {
            if (LinesD* edge = canvas.Lines.byIndex(number)) {
                edge->centreMiddle();
            }
        }
    }
}

bool meet(const Box& a, const Box& b) {
    return a.Left < b.right() + kGap && b.Left < a.right() + kGap && a.Top < b.bottom() + kGap &&
           b.Top < a.bottom() + kGap;
}

}  // namespace

void reshape(Canvas& canvas, LabelsD& node, const Box& box) {
    node.setBox(box);
    centreMiddles(canvas, node);
}

void moveNodes(Canvas& canvas, const std::vector<NodeNumber>& nodes, float dx, float dy) {
    std::optional<ManyChanges> together;
    if (nodes.size() > 1) {
        together.emplace(canvas);
    }
    for (const NodeNumber index : nodes) {
        if (LabelsD* node = canvas.Labels.byIndex(index)) {
            node->setBox({node->Left() + dx, node->Top() + dy, node->Width(), node->Height()});
        }
    }
    for (const NodeNumber index : nodes) {
        if (const LabelsD* node = canvas.Labels.byIndex(index)) {
            centreMiddles(canvas, *node);
        }
    }
}

void followGrabPoints(Canvas& canvas, const LabelsD& node) {
    for (const EdgeNumber number : node.StartingLines()) {
        LinesD& edge = *canvas.Lines.byIndex(number);
        edge.setStart(node.GrabPoint(edge.FromGrabbingPoint()));
    }
    for (const EdgeNumber number : node.EndingLines()) {
        LinesD& edge = *canvas.Lines.byIndex(number);
        edge.setEnd(node.GrabPoint(edge.ToGrabbingPoint()));
    }
    centreMiddles(canvas, node);
}

Box freePlaceNear(const Canvas& canvas, const LabelsD& node, const Box& box) {
    const float reach = kRing * (kRings + 1);
    const Box around{box.Left - reach, box.Top - reach, box.Width + 2 * reach, box.Height + 2 * reach};
    std::vector<Box> near;
    for (const LabelsD& other : canvas.Labels) {
        if (&other != &node && other.Visible() && meet(other.box(), around)) {
            near.push_back(other.box());
        }
    }
    for (int ring = 0; ring <= kRings; ++ring) {
        for (int row = -ring; row <= ring; ++row) {
            // Only the border of the square: what lies within was tried before.
            const int step = row == -ring || row == ring ? 1 : 2 * ring;
            for (int column = -ring; column <= ring; column += std::max(1, step)) {
                const Box tried{box.Left + kRing * static_cast<float>(column),
                                box.Top + kRing * static_cast<float>(row), box.Width, box.Height};
                const bool inside = tried.Left >= 0 && tried.Top >= 0;
                if (inside && std::none_of(near.begin(), near.end(), [&](const Box& b) { return meet(b, tried); })) {
                    return tried;
                }
            }
        }
    }
    return box;
}

}  // namespace orvent::canvas
