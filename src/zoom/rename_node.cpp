#include "zoom/rename_node.h"

#include <utility>

#include "canvas/owners.h"
#include "canvas/taken_name.h"
#include "links/kept_mirrors.h"
#include "links/member_rename.h"
#include "links/members.h"
#include "links/unsynchronize_functions.h"
#include "zoom/expand_collapse.h"
#include "zoom/linked_constant.h"
#include "zoom/part_of.h"
#include "zoom/waiting_functions.h"

namespace orvent::zoom {

using namespace links;

using namespace entities;
using canvas::LabelsD;

namespace {

/// Gives the node its name, or leaves it as it was when the name is taken, which is told.
bool takeName(LabelsD& node, const std::string& keyName, const std::string& caption) {
    const std::string formerKey = node.KeyName();
    const std::string formerCaption = node.Caption();
    node.setKeyName(keyName);
    const bool refused = node.KeyName() == canvas::kErrorName;
    if (refused) {
        node.setKeyName(formerKey);
    }
    node.showCaption(refused ? formerCaption : caption);
    return !refused;
}

/// Puts the item that stands under `former` under its new key, at the same place.
template <class List>
void rekey(List& list, const std::string& former, const std::string& key) {
    if (const int position = list.positionOf(former)) {
        auto item = list.Remove(position);
        list.insert(position, std::move(item), key);
    }
}

/// What an owner has to note when a member of it bears another key.
void noteKey(LabelsD& owner, NodeKindCode kind, const std::string& former, const std::string& key) {
    if (kind == KindInput) {
        owner.activity()->Act_Inputs->Changed = true;
    } else if (RecordSetProperties* recordSet = owner.recordSet()) {
        rekey(*recordSet->DB2Key, former, key);
    }
}

/// Tells that a name is taken by what has no node of its own.
bool tellWhenTaken(ZoomView& view, bool taken) {
    if (taken) {
        canvas::tellTakenName(view.messages());
    }
    return taken;
}

template <class List>
bool holds(const List* list, const std::string& key) {
    return list && list->Item(key);
}

Rename renameOf(const LabelsD&, const AttributeProperties& entity, const std::string& now) {
    return {entity.ParentKeyName, entity.NodeKind, entity.Key, now};
}
Rename renameOf(const LabelsD& owner, const ParameterProperties& entity, const std::string& now) {
    const auto* function = owner.entity<FunctionProperties>();
    return {function ? function->ParentKeyName() : entity.ParentKeyName, entity.NodeKind, entity.Key, now,
            function ? function->Function_Key : std::string()};
}

template <class Entity>
bool renameMember(ZoomView& view, LabelsD& node, Entity& entity, const std::string& name) {
    LabelsD* owner = standsAlone(view, node) ? nullptr : view.nodeNamed(entity.ParentKeyName);
    auto* list = owner ? canvas::listOf<Entity>(*owner, entity.NodeKind) : nullptr;
    const std::string former = entity.Key;
    const bool isConstant = node.NodeType() == canvas::NodeTypeConstant;
    const bool taken = holds(list, name) || (isConstant && isTakenFromConstants(view, name));
    if (tellWhenTaken(view, taken && name != former) ||
        !takeName(node, list ? wholeKey(entity.ParentKeyName, entity.NodeKind, name) : name, name)) {
        return false;
    }
    KeptMirrors mirrors(view);
    mirrors.hold(entity);
    if (list) {
        rekey(*list, former, name);
        view.tellRenamed(renameOf(*owner, entity, name));
        noteKey(*owner, entity.NodeKind, former, name);
    }
    if (isConstant) {
        entity.ParentKeyName = name;  // a constant is its own owner
    }
    entity.Key = nameOf(entity) = name;
    mirrors.rekey();
    return true;
}

bool renameFunction(ZoomView& view, LabelsD& node, FunctionProperties& function, const std::string& key) {
    LabelsD* owner = standsAlone(view, node) ? awaitedActivity(view, node) : view.nodeNamed(function.ParentKeyName());
    Act_FunctionsCollection* list = owner && owner->activity() ? &*owner->activity()->Act_Functions : nullptr;
    if (tellWhenTaken(view, key != function.Function_Key && holds(list, key)) || !takeName(node, key, key)) {
        return false;
    }
    KeptMirrors mirrors(view);
    mirrors.hold(function);
    view.tellRenamed({list ? owner->activity()->Act_Name : std::string(), KindFunction, function.Function_Key, key});
    if (list) {
        rekey(*list, function.Function_Key, key);
    }
    setKey(function, key);
    function.Function_Name = key;
    eachLinked(function, [&](ParameterProperties& parameter) {
        if (LabelsD* shown = view.Labels.byIndex(NearEnd(parameter).labelIn(view))) {
            shown->setKeyName(wholeKey(key, parameter.NodeKind, parameter.Key));
        }
    });
    mirrors.rekey();
    bringUp(view, node);
    return true;
}

}  // namespace

bool standsAlone(const ZoomView& view, const LabelsD& node) {
    if (const auto* attribute = node.entity<AttributeProperties>()) {
        return isFree(view, attribute->ParentKeyName);
    }
    if (const auto* parameter = node.entity<ParameterProperties>()) {
        return node.NodeType() == canvas::NodeTypeConstant || isFree(view, parameter->ParentKeyName);
    }
    const auto* function = node.entity<FunctionProperties>();
    return !function || isFree(view, function->ParentKeyName());
}

bool RenameNode(ZoomView& view, LabelsD& node, const std::string& name) {
    if (auto* attribute = node.entity<AttributeProperties>()) {
        return renameMember(view, node, *attribute, name);
    }
    if (auto* parameter = node.entity<ParameterProperties>()) {
        return renameMember(view, node, *parameter, name);
    }
    auto* function = node.entity<FunctionProperties>();
    return function && renameFunction(view, node, *function, name);
}

void ReplaceFunction(ZoomView& view, LabelsD& node, std::shared_ptr<FunctionProperties> function) {
    const bool expanded = node.Expanded;
    CollapseFunction(view, node.Index());
    FunctionProperties& former = *node.entity<FunctionProperties>();
    view.order.forgetFunction(former.Function_Key);
    UnSynchronizeFunction(view, former, true, nullptr);
    if (former.FunctionID != 0) {
        view.DeletedNodes->Add(former.FunctionID, KindFunction);
    }
    function->FunctionID = 0;
    const LabelsD* awaited = awaitedActivity(view, node);
    eachLinked(*function, [&](ParameterProperties& parameter) {
        parameter.ParentKeyName = function->Function_Key;
        parameter.ParentFunctionActivity = awaited ? awaited->activity()->Act_Name : std::string();
    });
    node.Properties = std::move(function);
    if (expanded) {
        ExpandFunction(view, node.Index());
    }
}

}  // namespace orvent::zoom
