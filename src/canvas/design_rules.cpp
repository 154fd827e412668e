// What the gestures mean on the design window.

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "canvas/canvas_rules.h"

namespace orvent::canvas {

namespace {

/// The kinds that tools place here. Without a counter of its own, the default name takes the number of the last node.
struct PlacedKind {
    NodeTypeCode nodeType;
    std::int32_t Canvas::*counter;
    bool opensDialog;
};

constexpr std::array<PlacedKind, 4> kPlacedKinds = {{
    {NodeTypeRecordSet, &Canvas::RecordSetCounter, true},
    {NodeTypeActivity, &Canvas::ActivityCounter, true},
    {NodeTypeComment, nullptr, false},
    {NodeTypeLog, nullptr, false},
}};

/// A tool that draws edges, and the two kinds of nodes at which its edges may start.
struct EdgeTool {
    std::string_view key;
    EdgeTypeCode edgeType;
    std::array<NodeTypeCode, 2> sources;
};

constexpr std::array<EdgeTool, 2> kEdgeTools = {{
    {"Provider", EdgeTypeProvider, {NodeTypeRecordSet, NodeTypeActivity}},
    {"Description", EdgeTypeDescription, {NodeTypeActivity, NodeTypeComment}},
}};

bool isValid(EdgeTypeCode edgeType, NodeTypeCode from, NodeTypeCode to) {
    if (edgeType == EdgeTypeProvider) {
        return to != NodeTypeLog && to != NodeTypeComment;
    }
    return (to == NodeTypeActivity || from != NodeTypeComment) && (to == NodeTypeLog || from != NodeTypeActivity);
}

}  // namespace

std::string freeName(const Canvas& canvas, std::string_view word, std::int32_t& counter) {
    std::string name;
    do {
        name = std::string(word) + std::to_string(++counter);
    } while (canvas.isNameTaken(name));
    return name;
}

float SnapToGrid(float v) {
    return std::nearbyint(v / 100) * 100 + 0.0F;  // adding zero turns a negative zero into a plain one
}

LabelsD* DesignRules::placeNode(Canvas& canvas, std::string_view tool, Point at) {
    for (const PlacedKind& row : kPlacedKinds) {
        const NodeKind& kind = nodeKind(row.nodeType);
        if (kind.tool == tool) {
            const std::string name = row.counter ? freeName(canvas, kind.word, canvas.*row.counter)
                                                 : std::string(kind.word) + textOf(canvas.LabelsNo);
            LabelsD& node = canvas.Labels.Add(placedBox(kind, canvas.settings(), at), name, row.nodeType);
            return row.opensDialog ? &node : nullptr;
        }
    }
    return nullptr;
}

bool DesignRules::places(std::string_view tool) const {
    return std::any_of(kPlacedKinds.begin(), kPlacedKinds.end(),
                       [&](const PlacedKind& row) { return nodeKind(row.nodeType).tool == tool; });
}

std::optional<EdgeTypeCode> DesignRules::edgeTypeOf(std::string_view tool) const {
    for (const EdgeTool& row : kEdgeTools) {
        if (row.key == tool) {
            return row.edgeType;
        }
    }
    return std::nullopt;
}

bool DesignRules::mayStart(EdgeTypeCode edgeType, const LabelsD& source) const {
    return std::any_of(kEdgeTools.begin(), kEdgeTools.end(), [&](const EdgeTool& row) {
        return row.edgeType == edgeType &&
               std::find(row.sources.begin(), row.sources.end(), source.NodeType()) != row.sources.end();
    });
}

bool DesignRules::mayRelate(const Canvas&, EdgeTypeCode edgeType, const LabelsD& from, const LabelsD& to) const {
    return isValid(edgeType, from.NodeType(), to.NodeType());
}

bool DesignRules::mayRedirect(Canvas&, LinesD& edge, bool atStart, const LabelsD& target) {
    return !atStart || mayStart(edge.EdgeType(), target);
}

void DesignRules::middleOnOwnEnd(LinesD&) {
    // The edge keeps its shape.
}

bool DesignRules::releaseEdge(Canvas&, LinesD&) {
    return true;  // an edge between whole nodes stands for no link
}

bool DesignRules::mayDelete(Canvas&, const LabelsD&) {
    return true;
}

bool DesignRules::releaseFunction(Canvas&, LabelsD&) {
    return false;  // functions have no nodes here
}

bool DesignRules::toggleExpanded(Canvas&, LabelsD&) {
    return true;  // whole nodes stay whole
}

bool DesignRules::CheckRelationship(Canvas& canvas, LinesD& edge) {
    const LabelsD* from = canvas.Labels.byIndex(edge.FromLabel());
    const LabelsD* to = canvas.Labels.byIndex(edge.ToLabel());
    if (from && to && isValid(edge.EdgeType(), from->NodeType(), to->NodeType())) {
        return true;
    }
    canvas.Lines.RemoveFull(edge.Index());
    canvas.messages().tell("This Relationship Is Not Valid", "", platform::Icon::warning);
    return false;
}

}  // namespace orvent::canvas
