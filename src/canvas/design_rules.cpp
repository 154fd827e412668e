// What the gestures mean on the design window.

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "canvas/canvas_rules.h"

namespace orvent::canvas {

namespace {

/// A tool that places nodes. Without a counter of its own, the default name takes the number of the last node.
struct NodeTool {
    std::string_view key;
    NodeTypeCode nodeType;
    std::string_view word;
    float CanvasSettings::*width;
    float CanvasSettings::*height;
    std::int32_t Canvas::*counter;
    bool opensDialog;
};

constexpr std::array<NodeTool, 4> kNodeTools = {{
    {"RecordSet", NodeTypeRecordSet, "RecordSet", &CanvasSettings::RecW, &CanvasSettings::RecH,
     &Canvas::RecordSetCounter, true},
    {"Activity", NodeTypeActivity, "Activity", &CanvasSettings::ActW, &CanvasSettings::ActH, &Canvas::ActivityCounter,
     true},
    {"Comment", NodeTypeComment, "Comment", &CanvasSettings::ComW, &CanvasSettings::ComH, nullptr, false},
    {"Log", NodeTypeLog, "LOG", &CanvasSettings::LogW, &CanvasSettings::LogH, nullptr, false},
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

// A loaded scenario may hold names that were given by default, so taken ones are passed over.
std::string defaultName(Canvas& canvas, const NodeTool& tool) {
    const std::string word(tool.word);
    if (!tool.counter) {
        return word + std::to_string(canvas.LabelsNo);
    }
    std::string name;
    do {
        name = word + std::to_string(++(canvas.*tool.counter));
    } while (canvas.isNameTaken(name));
    return name;
}

bool isValid(EdgeTypeCode edgeType, NodeTypeCode from, NodeTypeCode to) {
    if (edgeType == EdgeTypeProvider) {
        return to != NodeTypeLog && to != NodeTypeComment;
    }
    return (to == NodeTypeActivity || from != NodeTypeComment) && (to == NodeTypeLog || from != NodeTypeActivity);
}

}  // namespace

float SnapToGrid(float v) {
    return std::nearbyint(v / 100) * 100 + 0.0F;  // adding zero turns a negative zero into a plain one
}

LabelsD* DesignRules::placeNode(Canvas& canvas, std::string_view tool, Point at) {
    for (const NodeTool& row : kNodeTools) {
        if (row.key == tool) {
            const float width = canvas.settings().*row.width;
            const float height = canvas.settings().*row.height;
            LabelsD& node =
                canvas.Labels.Add({std::max(at.x - width / 2, 0.0F), std::max(at.y - height / 2, 0.0F), width, height},
                                  defaultName(canvas, row), row.nodeType);
            return row.opensDialog ? &node : nullptr;
        }
    }
    return nullptr;
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
