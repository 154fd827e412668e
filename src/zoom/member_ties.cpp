#include "zoom/member_ties.h"

#include <vector>

#include "canvas/canvas_rules.h"
#include "entities/members.h"
#include "links/kept_mirrors.h"
#include "links/member_links.h"
#include "links/members.h"
#include "zoom/drawn_edge.h"
#include "zoom/part_of.h"
#include "zoom/relationship_matrix.h"
#include "zoom/rename_node.h"
#include "zoom/typed_name.h"
#include "zoom/waiting_functions.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

/// One list of an activity that takes a drawn member.
struct MemberList {
    NodeKindCode kind;
    const char* infix;
    const char* taken;
};

constexpr MemberList kInputs = {KindInput, ".IN.",
                                "An Input With The Same Name Allready Exists.\nPlease Rename The Current Attribute!"};
constexpr MemberList kOutputs = {KindOutput, ".OUT.",
                                 "An Output With The Same Name Allready Exists.\nPlease Rename The Current Attribute!"};
constexpr MemberList kParameters = {
    KindParameter, ".PARAM.", "A Parameter With The Same Name Allready Exists.\nPlease Rename The Current Parameter!"};

/// The end of an activity where an edge leaves as from its outputs.
constexpr std::int16_t kOutputGrabPoint = 4;

template <class List>
void tieMember(ZoomView& view, LabelsD& owner, LabelsD& node, List& list, const MemberList& row,
               canvas::EdgeNumber edge) {
    auto* held = node.entity<EntityOf<List>>();
    if (!held) {
        return;
    }
    auto& entity = *held;
    const std::string key = entity.Key.empty() ? node.Caption() : entity.Key;
    const std::string name = owner.Caption() + row.infix + key;
    if (list.Item(key) || view.isNameTaken(name)) {
        view.Lines.RemoveFull(edge);
        view.messages().tell(row.taken);
        return;
    }
    entity.NodeKind = row.kind;
    node.setKeyName(name);
    entity.ParentKeyName = owner.Caption();
    addMember(node, list, key);
    if constexpr (requires { list.Changed; }) {
        list.Changed = true;
    }
}

/// The parameters of a function that are shown one by one show those of the function that stands there now.
void bindParameters(ZoomView& view, LabelsD& function, FunctionProperties& bound) {
    for (const canvas::EdgeNumber number : function.StartingLines()) {
        const LinesD* edge = view.Lines.byIndex(number);
        LabelsD* node = edge ? view.Labels.byIndex(edge->ToLabel()) : nullptr;
        const auto* parameter = node ? node->entity<ParameterProperties>() : nullptr;
        if (!parameter || edge->EdgeType() != canvas::EdgeTypePartOf ||
            parameter->ParentKeyName != bound.Function_Key) {
            continue;  // the edge means nothing, and its end is another one's
        }
        withList(bound, parameter->NodeKind, [&](auto& list, NodeKindCode) {
            if (auto item = list->share(parameter->Key)) {
                bindNode(*node, std::move(item));
            }
        });
    }
}

}  // namespace

void makeMember(ZoomView& view, canvas::EdgeNumber& edge, LabelsD& from, LabelsD& to) {
    auto* activity = from.activity();
    if (const auto* function = to.entity<FunctionProperties>(); activity && function) {
        if (!isFree(view, function->ParentKeyName()) || awaitedActivity(view, to) ||
            activity->Act_Functions->Item(function->Function_Key)) {
            RejectRelationship(view, edge);
        } else {
            AttachFunction(view, to, from, false);
        }
    } else if (from.entity<FunctionProperties>() && to.activity()) {
        FlipLine(view, edge);
        makeMember(view, edge, to, from);
    } else if (const RelationEnd member(to); activity && member.present() && member.kind() != KindConstant) {
        if (!isFree(view, member.parentKeyName())) {
            RejectRelationship(view, edge);
        } else {
            const bool asOutput = view.Lines.byIndex(edge)->FromGrabbingPoint() == kOutputGrabPoint;
            const MemberList& row = to.entity<ParameterProperties>() ? kParameters : asOutput ? kOutputs : kInputs;
            withList(*activity, row.kind,
                     [&](auto& list, NodeKindCode) { tieMember(view, from, to, *list, row, edge); });
        }
    }
}

namespace {

/// A node that is free now goes by its caption, or, where another one has that name, by the next free one.
void takeFreeName(ZoomView& view, LabelsD& node) {
    if (view.isNameTaken(node.Caption())) {
        std::int32_t counter = 0;
        const std::string name = canvas::freeName(view, node.Caption(), counter);
        const auto take = [&](auto& entity) {
            entity.Key = nameOf(entity) = name;
            node.setToolTipText(typedName(view, name, typeOf(entity)));
        };
        if (auto* attribute = node.entity<AttributeProperties>()) {
            take(*attribute);
        } else if (auto* parameter = node.entity<ParameterProperties>()) {
            take(*parameter);
        }
        node.showCaption(name);
    }
    node.setKeyName(node.Caption());
}

}  // namespace

void freeMember(ZoomView& view, ActivityProperties& owner, LabelsD& node) {
    const RelationEnd end(node);
    if (!end.present() || (end.kind() != KindInput && end.kind() != KindOutput && end.kind() != KindParameter)) {
        return;  // the edge meant nothing
    }
    const auto release = [&](auto& entity) {
        unlinkMember(view, entity, true, nullptr);
        view.DeletedNodes->Add(entity.SubNode_ID, entity.NodeKind);
        listOf<std::remove_cvref_t<decltype(entity)>>(owner, entity.NodeKind)->Remove(entity.Key);
        if (entity.NodeKind == KindInput) {
            owner.Act_Inputs->Changed = true;
        }
        entity.SubNode_ID = 0;
        entity.NodeKind = KindFree;
        if constexpr (requires { entity.ProvidedFrom; }) {
            entity.Tag = TagNone;  // without links it comes from nowhere, and may come back among other members
        }
        entity.ParentKeyName.clear();
    };
    const std::shared_ptr<const void> held = node.entityShare();
    if (auto* attribute = node.entity<AttributeProperties>()) {
        release(*attribute);
    } else if (auto* parameter = node.entity<ParameterProperties>()) {
        release(*parameter);
    }
    takeFreeName(view, node);
}

void AttachFunction(ZoomView& view, LabelsD& function, LabelsD& activity, bool DrawEdge) {
    if (DrawEdge && !view.Lines.FindConnectingLine(activity.Index(), function.Index(), canvas::EdgeTypePartOf, false)) {
        view.Lines.addFullLine(activity.Index(), 5, function.Index(), 2, canvas::EdgeTypePartOf,
                               canvas::AngleVerticalUp, 0);
    }
    auto& entity = *function.entity<FunctionProperties>();
    // Record sets call the inputs by another key then.
    KeptMirrors mirrors(view);
    mirrors.hold(entity);
    entity.setParentKeyName(activity.activity()->Act_Name);
    mirrors.rekey();
    entity.Function_Source = SourceOwn;
    const std::string key = entity.Function_Key.empty() ? function.Caption() : entity.Function_Key;
    bindParameters(view, function, addMember(function, *activity.activity()->Act_Functions, key));
}

void forgetRows(FunctionProperties& function) {
    function.FunctionID = 0;
    eachMember(function, [](ParameterProperties& parameter) { parameter.SubNode_ID = 0; });
}

void DetachFunction(ZoomView& view, LabelsD& function, LabelsD* activity) {
    if (!activity) {
        return;
    }
    const std::shared_ptr<FunctionProperties> held =
        std::get<platform::Shared<FunctionProperties>>(function.Properties).share();
    FunctionProperties& entity = *held;
    // The keys by which others know its parameters name the activity, so the links go before it is forgotten.
    UnSynchronizeFunction(view, entity, true, nullptr);
    entity.setParentKeyName("");
    entity.Function_Source = SourceNone;
    activity->activity()->Act_Functions->Remove(entity.Function_Key);
    if (entity.FunctionID != 0) {
        view.DeletedNodes->Add(entity.FunctionID, KindFunction);
    }
    forgetRows(entity);
    // Alone it has no owner in its name either.
    if (const std::string head = activity->activity()->Act_Name + "."; entity.Function_Key.starts_with(head)) {
        const std::string bare = entity.Function_Key.substr(head.size());
        std::int32_t counter = 0;
        RenameNode(view, function, view.isNameTaken(bare) ? canvas::freeName(view, bare, counter) : bare);
    }
}

}  // namespace orvent::zoom
