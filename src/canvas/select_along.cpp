#include "canvas/select_along.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <unordered_set>
#include <utility>
#include <vector>

namespace orvent::canvas {

namespace {

using Numbers = std::unordered_set<NodeNumber>;

bool isFlow(const LinesD& edge) {
    return edge.EdgeType() == EdgeTypeProvider || edge.EdgeType() == EdgeTypeRegulator;
}

/// All that is reached from the nodes, and they themselves.
Numbers reachedFrom(const Canvas& canvas, std::vector<NodeNumber> open, Along along) {
    Numbers reached(open.begin(), open.end());
    while (!open.empty()) {
        const LabelsD* node = canvas.Labels.byIndex(open.back());
        open.pop_back();
        const auto go = [&](const LineNumbers& lines, NodeNumber (LinesD::*end)() const) {
            for (const EdgeNumber number : lines) {
                const LinesD* edge = canvas.Lines.byIndex(number);
                const bool leads = edge && edge->Visible() && (along == Along::connected || isFlow(*edge));
                const LabelsD* other = leads ? canvas.Labels.byIndex((edge->*end)()) : nullptr;
                if (other && other->Visible() && reached.insert(other->Index()).second) {
                    open.push_back(other->Index());
                }
            }
        };
        if (node && along != Along::downstream) {
            go(node->EndingLines(), &LinesD::FromLabel);
        }
        if (node && along != Along::upstream) {
            go(node->StartingLines(), &LinesD::ToLabel);
        }
    }
    return reached;
}

template <class Belongs>
void selectWhere(Canvas& canvas, Belongs belongs) {
    const ManyChanges many(canvas);
    for (const LabelsD& node : canvas.Labels) {
        if (node.Visible() && belongs(node)) {
            canvas.SelectedLabels.Add(node.Index());
        }
    }
}

/// The kind of a node with the number of its type, 0 where the kind has none.
std::pair<NodeTypeCode, std::int32_t> typeWithKind(const LabelsD& node) {
    std::int32_t type = 0;
    if (const auto* activity = node.activity()) {
        type = activity->Act_Type;
    } else if (const auto* function = node.entity<entities::FunctionProperties>()) {
        type = function->Function_Type;
    } else if (const auto* attribute = node.entity<entities::AttributeProperties>()) {
        type = attribute->Attribute_Type;
    } else if (const auto* parameter = node.entity<entities::ParameterProperties>()) {
        type = parameter->Parameter_Type;
    }
    return {node.NodeType(), type};
}

}  // namespace

void selectAlong(Canvas& canvas, Along along) {
    const Numbers reached = reachedFrom(canvas, canvas.SelectedLabels.members(), along);
    selectWhere(canvas, [&](const LabelsD& node) { return reached.contains(node.Index()); });
}

bool selectBetween(Canvas& canvas) {
    const std::vector<NodeNumber> ends = canvas.SelectedLabels.members();
    if (ends.size() != 2) {
        return false;
    }
    Numbers between;
    for (const auto& [from, to] : {std::pair(ends[0], ends[1]), std::pair(ends[1], ends[0])}) {
        const Numbers behind = reachedFrom(canvas, {from}, Along::downstream);
        const Numbers before = behind.contains(to) ? reachedFrom(canvas, {to}, Along::upstream) : Numbers();
        std::copy_if(behind.begin(), behind.end(), std::inserter(between, between.end()),
                     [&](NodeNumber node) { return before.contains(node); });
    }
    selectWhere(canvas, [&](const LabelsD& node) { return between.contains(node.Index()); });
    return !between.empty();
}

void selectSameType(Canvas& canvas) {
    std::set<std::pair<NodeTypeCode, std::int32_t>> types;
    for (const NodeNumber index : canvas.SelectedLabels.members()) {
        types.insert(typeWithKind(*canvas.Labels.byIndex(index)));
    }
    selectWhere(canvas, [&](const LabelsD& node) { return types.contains(typeWithKind(node)); });
}

}  // namespace orvent::canvas
