#include "zoom/zoom_rules.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>

#include "links/unsynchronize_functions.h"
#include "zoom/expand_collapse.h"
#include "zoom/linked_constant.h"
#include "zoom/make_room.h"
#include "zoom/member_ties.h"
#include "zoom/part_of.h"
#include "zoom/path_light.h"
#include "zoom/relationship_rules.h"
#include "zoom/typed_name.h"
#include "zoom/view_filters.h"
#include "zoom/waiting_functions.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

/// The kinds that tools place here.
struct PlacedKind {
    canvas::NodeTypeCode nodeType;
    std::int32_t ZoomView::*counter;
};

constexpr std::array<PlacedKind, 4> kPlacedKinds = {{
    {canvas::NodeTypeConstant, &ZoomView::ConstantCounter},
    {canvas::NodeTypeAttribute, &ZoomView::AttributeCounter},
    {canvas::NodeTypeFunction, &ZoomView::FunctionCounter},
    {canvas::NodeTypeParameter, &ZoomView::ParameterCounter},
}};

struct EdgeTool {
    std::string_view key;
    canvas::EdgeTypeCode edgeType;
};

constexpr std::array<EdgeTool, 3> kEdgeTools = {{
    {"Provider", canvas::EdgeTypeProvider},
    {"Regulator", canvas::EdgeTypeRegulator},
    {"PartOf", canvas::EdgeTypePartOf},
}};

/// Instance-of and derived edges only show something.
bool standsForLinks(const LinesD& edge) {
    return std::any_of(kEdgeTools.begin(), kEdgeTools.end(),
                       [&](const EdgeTool& tool) { return tool.edgeType == edge.EdgeType(); });
}

/// Whether a part-of edge holds what the design window or the catalogue made: an attribute of a record set, or an input
/// or output of a function; or what a second copy shows. Such an edge stays; one that ties a member to an activity may
/// go, and so may one that was drawn between nodes of other kinds and means nothing.
bool holdsGivenMember(const ZoomView& view, const LinesD& edge) {
    const LabelsD* from = view.Labels.byIndex(edge.FromLabel());
    const LabelsD* to = view.Labels.byIndex(edge.ToLabel());
    if (edge.EdgeType() != canvas::EdgeTypePartOf || !from || !to) {
        return false;
    }
    return !view.bearsName(*from) || (!from->activity() && isMemberOf(view, *to, *from));
}

/// The names of the functions that activities have, also those beyond the view and those that are collapsed.
std::unordered_set<std::string> functionNames(const ZoomView& view) {
    std::unordered_set<std::string> names;
    const auto add = [&](const canvas::Canvas& canvas) {
        for (const LabelsD& node : canvas.Labels) {
            if (const ActivityProperties* activity = node.activity()) {
                for (const FunctionProperties& function : activity->Act_Functions) {
                    names.insert({function.Function_Key, function.Function_Name});
                }
            }
        }
    };
    add(view);
    add(view.ParForm());
    return names;
}

/// A default name that nothing bears by which links might be taken to mean the new node.
std::string newName(ZoomView& view, const canvas::NodeKind& kind, std::int32_t& counter) {
    const bool function = kind.nodeType == canvas::NodeTypeFunction;
    const std::unordered_set<std::string> functions =
        function ? functionNames(view) : std::unordered_set<std::string>();
    std::string name;
    do {
        name = canvas::freeName(view, kind.word, counter);
    } while (functions.count(name) || (kind.nodeType == canvas::NodeTypeConstant && isTakenFromConstants(view, name)));
    return name;
}

}  // namespace

LabelsD* ZoomRules::placeNode(canvas::Canvas&, std::string_view tool, canvas::Point at) {
    for (const PlacedKind& row : kPlacedKinds) {
        const canvas::NodeKind& kind = canvas::nodeKind(row.nodeType);
        if (kind.tool != tool) {
            continue;
        }
        const std::string name = newName(view_, kind, view_.*row.counter);
        LabelsD& node = view_.Labels.Add(canvas::placedBox(kind, view_.settings(), at), name, row.nodeType);
        if (row.nodeType != canvas::NodeTypeFunction) {
            node.setToolTipText(typedName(view_, name, 0));
        }
        view_.touch();
        edited(view_);
    }
    return nullptr;  // no dialog opens by itself
}

bool ZoomRules::places(std::string_view tool) const {
    return std::any_of(kPlacedKinds.begin(), kPlacedKinds.end(),
                       [&](const PlacedKind& row) { return canvas::nodeKind(row.nodeType).tool == tool; });
}

std::optional<canvas::EdgeTypeCode> ZoomRules::edgeTypeOf(std::string_view tool) const {
    for (const EdgeTool& row : kEdgeTools) {
        if (row.key == tool) {
            return row.edgeType;
        }
    }
    return std::nullopt;
}

bool ZoomRules::mayStart(canvas::EdgeTypeCode, const LabelsD&) const {
    return true;  // what may be joined is told when the edge is complete
}

bool ZoomRules::mayRelate(const canvas::Canvas&, canvas::EdgeTypeCode edgeType, const LabelsD& from,
                          const LabelsD& to) const {
    return zoom::mayRelate(view_, edgeType, from, to);
}

bool ZoomRules::mayRedirect(canvas::Canvas&, LinesD& edge, bool, const LabelsD&) {
    if (!standsForLinks(edge) || holdsGivenMember(view_, edge)) {
        return false;
    }
    view_.touch();
    RemoveRelationship(view_, edge.Index());
    return view_.Lines.byIndex(edge.Index()) != nullptr;
}

void ZoomRules::edgeCompleted(canvas::Canvas&, LinesD& edge) {
    canvas::EdgeNumber number = edge.Index();
    CreateRelationship(view_, number);
    if (view_.Lines.byIndex(number)) {
        view_.touch();
    }
    edited(view_);
}

void ZoomRules::edited(canvas::Canvas&) {
    if (view_.takeEdits()) {
        followEdits(view_);
    }
}

void ZoomRules::middleOnOwnEnd(LinesD& edge) {
    edge.setAngle(canvas::AngleStraight);
}

bool ZoomRules::releaseEdge(canvas::Canvas&, LinesD& edge) {
    if (!edge.Visible()) {  // what a filter hides does not go unseen
        return false;
    }
    if (!standsForLinks(edge)) {
        return true;
    }
    if (holdsGivenMember(view_, edge)) {
        return false;
    }
    view_.touch();
    RemoveRelationship(view_, edge.Index());
    return true;
}

bool ZoomRules::mayDelete(canvas::Canvas&, const LabelsD& node) {
    if (node.activity() || node.recordSet()) {
        return false;  // they belong to the design window
    }
    const auto* parameter = node.entity<ParameterProperties>();
    const bool ofFunction =
        parameter && (parameter->NodeKind == KindFunctionInput || parameter->NodeKind == KindFunctionOutput);
    if (ofFunction || !view_.bearsName(node) || !node.Visible()) {  // what a filter hides does not go unseen
        return false;
    }
    view_.touch();
    return true;
}

bool ZoomRules::releaseFunction(canvas::Canvas&, LabelsD& node) {
    auto* function = node.entity<FunctionProperties>();
    if (!function) {
        return false;
    }
    view_.DeletedNodes->Add(function->FunctionID, KindFunction);
    function->FunctionID = 0;  // noted once
    CollapseFunction(view_, node.Index());
    view_.order.forgetFunction(function->Function_Key);
    UnSynchronizeFunction(view_, *function, true, nullptr);
    LabelsD* awaited = awaitedActivity(view_, node);
    DetachFunction(view_, node, awaited ? awaited : view_.nodeNamed(function->ParentKeyName()));
    return true;
}

bool ZoomRules::toggleExpanded(canvas::Canvas&, LabelsD& node) {
    if (node.Expanded && node.Index() == view_.CentralActivityNo) {
        return false;
    }
    if (node.Expanded) {
        CollapseWhole(view_, node);
    } else if (node.entity<FunctionProperties>()) {
        ExpandFunction(view_, node.Index());
    } else {
        ExpandByPlace(view_, node);
    }
    refreshFilters(view_);
    if (node.Expanded) {
        view_.setDisorder(disorderOf(view_));
    }
    return true;
}

canvas::Light ZoomRules::pathOf(const canvas::Canvas&, const LabelsD& node) const {
    return view_.sight().LightPathsM ? pathThrough(view_, node.Index()) : canvas::Light{};
}

canvas::ItemState ZoomRules::stateOf(const canvas::Canvas& canvas, const canvas::ContextItem& item,
                                     const LabelsD* node) const {
    canvas::ItemState state = CanvasRules::stateOf(canvas, item, node);
    if (item.action == canvas::MenuAction::properties && node && !view_.bearsName(*node)) {
        state.enabled = false;
    }
    return state;
}

}  // namespace orvent::zoom
