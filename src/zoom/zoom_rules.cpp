#include "zoom/zoom_rules.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>

#include "links/unsynchronize_functions.h"
#include "zoom/expand_collapse.h"
#include "zoom/linked_constant.h"
#include "zoom/make_room.h"
#include "zoom/path_light.h"
#include "zoom/typed_name.h"
#include "zoom/unfolding_parts.h"
#include "zoom/view_filters.h"
#include "zoom/waiting_functions.h"
#include "zoom/zoom_form.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

/// The kinds that tools place here.
struct PlacedKind {
    canvas::NodeTypeCode nodeType;
    std::int32_t ZoomForm::*counter;
};

constexpr std::array<PlacedKind, 4> kPlacedKinds = {{
    {canvas::NodeTypeConstant, &ZoomForm::ConstantCounter},
    {canvas::NodeTypeAttribute, &ZoomForm::AttributeCounter},
    {canvas::NodeTypeFunction, &ZoomForm::FunctionCounter},
    {canvas::NodeTypeParameter, &ZoomForm::ParameterCounter},
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
bool holdsGivenMember(const ZoomForm& form, const LinesD& edge) {
    const LabelsD* from = form.Labels.byIndex(edge.FromLabel());
    const LabelsD* to = form.Labels.byIndex(edge.ToLabel());
    if (edge.EdgeType() != canvas::EdgeTypePartOf || !from || !to) {
        return false;
    }
    return form.repeats(*from) || (!from->activity() && isMemberOf(form, *to, *from));
}

/// The names of the functions that activities have, also those beyond the view and those that are folded.
std::unordered_set<std::string> functionNames(const ZoomForm& form) {
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
    add(form);
    add(form.ParForm);
    return names;
}

/// A default name that nothing bears by which links might be taken to mean the new node.
std::string newName(ZoomForm& form, const canvas::NodeKind& kind, std::int32_t& counter) {
    const bool function = kind.nodeType == canvas::NodeTypeFunction;
    const std::unordered_set<std::string> functions =
        function ? functionNames(form) : std::unordered_set<std::string>();
    std::string name;
    do {
        name = canvas::freeName(form, kind.word, counter);
    } while (functions.count(name) || (kind.nodeType == canvas::NodeTypeConstant && isTakenFromConstants(form, name)));
    return name;
}

}  // namespace

LabelsD* ZoomRules::placeNode(canvas::Canvas&, std::string_view tool, canvas::Point at) {
    for (const PlacedKind& row : kPlacedKinds) {
        const canvas::NodeKind& kind = canvas::nodeKind(row.nodeType);
        if (kind.tool != tool) {
            continue;
        }
        const std::string name = newName(form_, kind, form_.*row.counter);
        LabelsD& node = form_.Labels.Add(canvas::placedBox(kind, form_.settings(), at), name, row.nodeType);
        if (row.nodeType != canvas::NodeTypeFunction) {
            node.setToolTipText(typedName(form_, name, 0));
        }
        form_.touch();
        edited(form_);
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
    return relationships_.mayRelate(form_, edgeType, from, to);
}

bool ZoomRules::mayRedirect(canvas::Canvas&, LinesD& edge, bool, const LabelsD&) {
    if (!standsForLinks(edge) || holdsGivenMember(form_, edge)) {
        return false;
    }
    form_.touch();
    relationships_.remove(form_, edge.Index());
    return form_.Lines.byIndex(edge.Index()) != nullptr;
}

void ZoomRules::edgeCompleted(canvas::Canvas&, LinesD& edge) {
    if (relationships_.create(form_, edge.Index())) {
        form_.touch();
    }
    edited(form_);
}

void ZoomRules::edited(canvas::Canvas&) {
    if (form_.takeEdits()) {
        followEdits(form_);
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
    if (holdsGivenMember(form_, edge)) {
        return false;
    }
    form_.touch();
    relationships_.remove(form_, edge.Index());
    return true;
}

bool ZoomRules::mayDelete(canvas::Canvas&, const LabelsD& node) {
    if (node.activity() || node.recordSet()) {
        return false;  // they belong to the design window
    }
    const auto* parameter = node.entity<ParameterProperties>();
    const bool ofFunction =
        parameter && (parameter->NodeKind == KindFunctionInput || parameter->NodeKind == KindFunctionOutput);
    if (ofFunction || form_.repeats(node) || !node.Visible()) {  // what a filter hides does not go unseen
        return false;
    }
    form_.touch();
    return true;
}

bool ZoomRules::releaseFunction(canvas::Canvas&, LabelsD& node) {
    auto* function = node.entity<FunctionProperties>();
    if (!function) {
        return false;
    }
    form_.DeletedNodes->Add(function->FunctionID, KindFunction);
    CollapseFunction(form_, node.Index());
    form_.order.forgetFunction(function->Function_Key);
    UnSynchronizeFunction(form_, *function, true, nullptr);
    LabelsD* awaited = awaitedActivity(form_, node);
    relationships_.detachFunction(form_, node, awaited ? awaited : form_.nodeNamed(function->ParentKeyName()));
    return true;
}

bool ZoomRules::toggleExpanded(canvas::Canvas&, LabelsD& node) {
    if (node.Expanded && node.Index() == form_.CentralActivityNo) {
        return false;
    }
    if (node.Expanded) {
        CollapseWhole(form_, node);
    } else if (node.entity<FunctionProperties>()) {
        ExpandFunction(form_, node.Index());
    } else {
        ExpandByPlace(form_, node);
    }
    refreshFilters(form_);
    if (node.Expanded) {
        form_.setDisorder(disorderOf(form_));
    }
    return true;
}

canvas::Light ZoomRules::pathOf(const canvas::Canvas&, const LabelsD& node) const {
    return form_.sight().LightPathsM ? pathThrough(form_, node.Index()) : canvas::Light{};
}

canvas::ItemState ZoomRules::stateOf(const canvas::Canvas& canvas, const canvas::ContextItem& item,
                                     const LabelsD* node) const {
    canvas::ItemState state = CanvasRules::stateOf(canvas, item, node);
    if (item.action == canvas::MenuAction::properties && node && !form_.bearsName(*node)) {
        state.enabled = false;
    }
    return state;
}

}  // namespace orvent::zoom
