#include "zoom/relationship_rules.h"

#include <utility>

#include "zoom/expand_collapse.h"
#include "zoom/members.h"
#include "zoom/relationship_matrix.h"
#include "zoom/synchronize_functions.h"
#include "zoom/unsynchronize_functions.h"
#include "zoom/zoom_form.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

const RelationRow* rowOf(canvas::EdgeTypeCode kind, const RelationEnd& from, const RelationEnd& to) {
    if (!from.present() || !to.present()) {
        return nullptr;
    }
    return kind == canvas::EdgeTypeProvider ? providerRow(from, to) : regulatorRow(from, to);
}

bool sameKind(const LinesD& edge, const LinesD& other) {
    return other.ToLabel() == edge.ToLabel() && other.EdgeType() == edge.EdgeType();
}

/// The node of the activity that ties an end, or of the function whose parameter it is.
LabelsD* ownerOf(canvas::Canvas& form, const RelationEnd& end) {
    return form.nodeNamed(end.parentKeyName());
}

/// A free attribute, parameter or function has no owner, or one that is gone.
bool isFree(const canvas::Canvas& form, const std::string& owner) {
    return owner.empty() || !form.isNameTaken(owner);
}

// Links

template <class Call>
void withLists(LabelsD& node, Call call) {
    if (auto* attribute = node.entity<AttributeProperties>()) {
        call(*attribute);
    } else if (auto* parameter = node.entity<ParameterProperties>()) {
        call(*parameter);
    }
}

/// The two ends by the direction of the links: the source provides or regulates.
struct LinkEnds {
    LabelsD& source;
    LabelsD& target;
};

void writeLinks(canvas::EdgeTypeCode kind, const LinkEnds& ends, const RelationRow& row, LinkType type,
                std::int32_t edge) {
    const RelationEnd source(ends.source), target(ends.target);
    if (kind == canvas::EdgeTypeProvider) {
        ends.source.entity<AttributeProperties>()->ProviderFor->Add(target.linkName(), type,
                                                                    target.near().keyAs(row.targetKey), edge);
        ends.target.entity<AttributeProperties>()->ProvidedFrom->Add(source.linkName(), type,
                                                                     source.near().keyAs(row.sourceKey), edge);
        return;
    }
    withLists(ends.source, [&](auto& entity) {
        entity.RegulatorFor->Add(target.linkName(), type, target.near().keyAs(row.targetKey), edge);
    });
    withLists(ends.target, [&](auto& entity) {
        entity.RegulatedFrom->Add(source.linkName(), type, source.near().keyAs(row.sourceKey), edge);
    });
}

void removeLinks(canvas::EdgeTypeCode kind, const LinkEnds& ends, const RelationRow& row) {
    const RelationEnd source(ends.source), target(ends.target);
    const std::string targetKey = target.near().keyAs(row.targetKey);
    const std::string sourceKey = source.near().keyAs(row.sourceKey);
    if (kind == canvas::EdgeTypeProvider) {
        ends.source.entity<AttributeProperties>()->ProviderFor->Remove(targetKey);
        ends.target.entity<AttributeProperties>()->ProvidedFrom->Remove(sourceKey);
        return;
    }
    withLists(ends.source, [&](auto& entity) {
        entity.RegulatorFor->Remove(targetKey);
        // A function's input had another key while its function was free.
        entity.RegulatorFor->Remove(target.near().keyAs(KeyForm::whole));
    });
    withLists(ends.target, [&](auto& entity) { entity.RegulatedFrom->Remove(sourceKey); });
}

void relate(ZoomForm& form, std::int32_t& edge, canvas::EdgeTypeCode kind, LabelsD& from, LabelsD& to) {
    const RelationEnd drawnFrom(from), drawnTo(to);
    const RelationRow* row = rowOf(kind, drawnFrom, drawnTo);
    if (!row || !row->allowed(drawnFrom, drawnTo)) {
        RejectRelationship(form, edge);
        return;
    }
    if (!CheckDataTypes(form, from, to, edge)) {
        return;
    }
    if (row->flip) {
        FlipLine(form, edge);
    }
    const LinkEnds ends = row->flip ? LinkEnds{to, from} : LinkEnds{from, to};
    writeLinks(kind, ends, *row, row->type(drawnFrom, drawnTo), edge);
    if (row->setTag >= 0) {
        to.entity<AttributeProperties>()->Tag = row->setTag;
    }
    const RelationEnd& ofFunction = drawnFrom.isFunctionParameter() ? drawnFrom : drawnTo;
    const RelationEnd& ofActivity = drawnFrom.isFunctionParameter() ? drawnTo : drawnFrom;
    if (row->attach && ofFunction.activityName().empty()) {
        LabelsD* function = ownerOf(form, ofFunction);
        LabelsD* activity = ownerOf(form, ofActivity);
        if (function && activity) {
            AttachFunction(form, *function, *activity, true);
        }
    }
}

// Members

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
void tieMember(ZoomForm& form, LabelsD& owner, LabelsD& node, List& list, const MemberList& row, std::int32_t edge) {
    auto& entity = *node.entity<EntityOf<List>>();
    const std::string key = entity.Key.empty() ? node.Caption() : entity.Key;
    const std::string name = owner.Caption() + row.infix + node.Caption();
    if (list.Item(key) || form.isNameTaken(name)) {
        form.Lines.RemoveFull(edge);
        form.messages().tell(row.taken);
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

void makeMember(ZoomForm& form, std::int32_t& edge, LabelsD& from, LabelsD& to) {
    auto* activity = from.activity();
    if (const auto* function = to.entity<FunctionProperties>(); activity && function) {
        if (!isFree(form, function->ParentKeyName()) || activity->Act_Functions->Item(function->Function_Key)) {
            RejectRelationship(form, edge);
        } else {
            AttachFunction(form, to, from, false);
        }
    } else if (from.entity<FunctionProperties>() && to.activity()) {
        FlipLine(form, edge);
        makeMember(form, edge, to, from);
    } else if (const RelationEnd member(to); activity && member.present() && member.kind() != KindConstant) {
        if (!isFree(form, member.parentKeyName())) {
            RejectRelationship(form, edge);
        } else if (to.entity<ParameterProperties>()) {
            tieMember(form, from, to, *activity->Act_Parameters, kParameters, edge);
        } else if (form.Lines.byIndex(edge)->FromGrabbingPoint() == kOutputGrabPoint) {
            tieMember(form, from, to, *activity->Act_Outputs, kOutputs, edge);
        } else {
            tieMember(form, from, to, *activity->Act_Inputs, kInputs, edge);
        }
    }
}

/// Takes a member out of its activity: its node stays, free and without links.
void freeMember(ZoomForm& form, ActivityProperties& owner, LabelsD& node) {
    const auto release = [&](auto& entity) {
        if (entity.SubNode_ID != 0) {
            form.DeletedNodes->Add(entity.SubNode_ID, entity.NodeKind);
        }
        switch (entity.NodeKind) {
            case KindInput:
                owner.Act_Inputs->Remove(entity.Key);
                owner.Act_Inputs->Changed = true;
                break;
            case KindOutput:
                owner.Act_Outputs->Remove(entity.Key);
                break;
            default:
                owner.Act_Parameters->Remove(entity.Key);
        }
        entity.SubNode_ID = 0;
        entity.NodeKind = KindFree;
        entity.ParentKeyName.clear();
    };
    const std::shared_ptr<void> held = std::visit(
        [](const auto& properties) -> std::shared_ptr<void> {
            if constexpr (requires { properties.get(); }) {
                return properties;
            } else {
                return nullptr;
            }
        },
        node.Properties);
    if (auto* attribute = node.entity<AttributeProperties>()) {
        UnSynchronizeAttribute(form, *attribute, true, nullptr);
        release(*attribute);
    } else if (auto* parameter = node.entity<ParameterProperties>()) {
        UnSynchronizeParameter(form, *parameter, true, nullptr);
        release(*parameter);
    }
    node.setKeyName(node.Caption());
}

/// The parameters of a function that are shown one by one show those of the function that stands there now.
void bindParameters(ZoomForm& form, LabelsD& function, FunctionProperties& bound) {
    for (const std::int32_t number : function.StartingLines()) {
        const LinesD* edge = form.Lines.byIndex(number);
        LabelsD* node = edge ? form.Labels.byIndex(edge->ToLabel()) : nullptr;
        const auto* parameter = node ? node->entity<ParameterProperties>() : nullptr;
        if (!parameter || edge->EdgeType() != canvas::EdgeTypePartOf) {
            continue;
        }
        FunctionParameters& list =
            parameter->NodeKind == KindFunctionInput ? *bound.Function_Inputs : *bound.Function_Outputs;
        if (auto item = list.share(parameter->Key)) {
            bindNode(*node, std::move(item));
        }
    }
}

}  // namespace

void CreateRelationship(ZoomForm& form, std::int32_t& edge) {
    if (!CheckDuplicateLine(form, edge)) {
        return;
    }
    const LinesD& drawn = *form.Lines.byIndex(edge);
    LabelsD* from = form.Labels.byIndex(drawn.FromLabel());
    LabelsD* to = form.Labels.byIndex(drawn.ToLabel());
    if (!from || !to) {
        return;
    }
    switch (const canvas::EdgeTypeCode kind = drawn.EdgeType(); kind) {
        case canvas::EdgeTypeProvider:
        case canvas::EdgeTypeRegulator:
            relate(form, edge, kind, *from, *to);
            break;
        case canvas::EdgeTypePartOf:
            makeMember(form, edge, *from, *to);
            break;
        default:
            break;
    }
}

void RemoveRelationship(ZoomForm& form, std::int32_t edge) {
    const LinesD& drawn = *form.Lines.byIndex(edge);
    const canvas::EdgeTypeCode kind = drawn.EdgeType();
    LabelsD* from = form.Labels.byIndex(drawn.FromLabel());
    LabelsD* to = form.Labels.byIndex(drawn.ToLabel());
    if (!from || !to) {
        return;
    }
    if (kind == canvas::EdgeTypePartOf) {
        if (to->entity<FunctionProperties>()) {
            DetachFunction(form, *to, from->activity() ? from : nullptr);
        } else if (from->activity()) {
            freeMember(form, *from->activity(), *to);
        }
        return;
    }
    const RelationEnd source(*from), target(*to);
    const RelationRow* row = rowOf(kind, source, target);
    if (!row) {
        return;
    }
    removeLinks(kind, {*from, *to}, *row);
    if (source.kind() == KindConstant && target.kind() == KindParameter) {
        // What else the parameter takes part in is drawn anew.
        ParameterProperties& parameter = *to->entity<ParameterProperties>();
        UnSynchronizeParameter(form, parameter, false, nullptr);
        SynchronizeParameter(form, parameter, nullptr);
    }
}

bool CheckDuplicateLine(canvas::Canvas& form, std::int32_t edge) {
    const LinesD& drawn = *form.Lines.byIndex(edge);
    const LabelsD* from = form.Labels.byIndex(drawn.FromLabel());
    if (!from) {
        return true;
    }
    for (const std::int32_t number : from->StartingLines()) {
        const LinesD* other = form.Lines.byIndex(number);
        if (number != edge && other && sameKind(drawn, *other)) {
            form.Lines.RemoveFull(edge);
            form.messages().tell("THIS LINE ALLREADY EXISTS!!", "", platform::Icon::warning);
            return false;
        }
    }
    return true;
}

void RejectRelationship(canvas::Canvas& form, std::int32_t edge) {
    form.Lines.RemoveFull(edge);
    form.messages().tell("This Relationship Is Not Valid!", "", platform::Icon::warning);
}

bool CheckDataTypes(ZoomForm& form, const LabelsD& from, LabelsD& to, std::int32_t edge) {
    const std::int16_t source = RelationEnd(from).dataType();
    const std::int16_t target = RelationEnd(to).dataType();
    if (source == target) {
        return true;
    }
    const NameTable& types = form.catalogue().dataTypes;
    if (types.name(target) != kDefinedBySource) {
        const std::string text =
            "This Relationship Is Not Valid!\nDifferent Data Types Found.\nSource: " + types.name(source) +
            ".\nTarget: " + types.name(target) + ".";
        form.Lines.RemoveFull(edge);
        form.messages().tell(text, "", platform::Icon::warning);
        return false;
    }
    const auto take = [&](auto& entity, std::int16_t& type, const std::string& name) {
        type = source;
        entity.Changed = true;
        to.setToolTipText(typedName(form, name, source));
    };
    if (auto* attribute = to.entity<AttributeProperties>()) {
        take(*attribute, attribute->Attribute_Type, attribute->Attribute_Name);
    } else if (auto* parameter = to.entity<ParameterProperties>()) {
        take(*parameter, parameter->Parameter_Type, parameter->Parameter_Name);
    }
    return true;
}

void FlipLine(canvas::Canvas& form, std::int32_t& edge) {
    const std::unique_ptr<LinesD> former = form.Lines.RemoveFull(edge);
    const LinesD* reverse =
        form.Lines.addFullLine(former->ToLabel(), former->ToGrabbingPoint(), former->FromLabel(),
                               former->FromGrabbingPoint(), former->EdgeType(), former->Angle(), former->Color());
    edge = reverse->Index();
}

void AttachFunction(ZoomForm& form, LabelsD& function, LabelsD& activity, bool DrawEdge) {
    if (DrawEdge && !form.Lines.FindConnectingLine(activity.Index(), function.Index(), canvas::EdgeTypePartOf, false)) {
        form.Lines.addFullLine(activity.Index(), 5, function.Index(), 2, canvas::EdgeTypePartOf,
                               canvas::AngleVerticalUp, 0);
    }
    auto& entity = *function.entity<FunctionProperties>();
    entity.setParentKeyName(activity.activity()->Act_Name);
    entity.Function_Source = kSourceOwn;
    const std::string key = entity.Function_Key.empty() ? function.Caption() : entity.Function_Key;
    bindParameters(form, function, addMember(function, *activity.activity()->Act_Functions, key));
}

void DetachFunction(ZoomForm& form, LabelsD& function, LabelsD* activity) {
    if (!activity) {
        return;
    }
    const std::shared_ptr<FunctionProperties> held = std::get<std::shared_ptr<FunctionProperties>>(function.Properties);
    FunctionProperties& entity = *held;
    // The keys by which others know its parameters name the activity, so the links go before it is forgotten.
    UnSynchronizeFunction(form, entity, true, nullptr);
    entity.setParentKeyName("");
    entity.Function_Source = 0;
    activity->activity()->Act_Functions->Remove(entity.Function_Key);
    if (entity.FunctionID != 0) {
        form.DeletedNodes->Add(entity.FunctionID, KindFunction);
        entity.FunctionID = 0;
    }
    for (ParameterProperties& input : entity.Function_Inputs) {
        input.SubNode_ID = 0;
    }
    if (ParameterProperties* output = entity.Function_Outputs->Item(1)) {
        output->SubNode_ID = 0;
    }
}

bool RelationshipRules::mayRelate(const ZoomForm& form, canvas::EdgeTypeCode kind, const LabelsD& from,
                                  const LabelsD& to) const {
    if (kind == canvas::EdgeTypePartOf) {
        const LabelsD& owner = to.activity() ? to : from;
        const LabelsD& member = to.activity() ? from : to;
        if (!owner.activity() || &owner == &member) {
            return false;
        }
        if (const auto* function = member.entity<FunctionProperties>()) {
            return isFree(form, function->ParentKeyName());
        }
        const RelationEnd end(member);
        return !to.activity() && end.present() && end.kind() != KindConstant && isFree(form, end.parentKeyName());
    }
    const RelationEnd source(from), target(to);
    const RelationRow* row = rowOf(kind, source, target);
    if (!row || !row->allowed(source, target)) {
        return false;
    }
    const NameTable& types = form.catalogue().dataTypes;
    return source.dataType() == target.dataType() || types.name(target.dataType()) == kDefinedBySource;
}

}  // namespace orvent::zoom
