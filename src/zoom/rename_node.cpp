#include "zoom/rename_node.h"

#include <utility>

#include "canvas/taken_name.h"
#include "links/kept_mirrors.h"
#include "links/member_rename.h"
#include "links/members.h"
#include "links/unsynchronize_functions.h"
#include "zoom/expand_collapse.h"
#include "zoom/linked_constant.h"
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

AttributeCollection* listOf(LabelsD& owner, const AttributeProperties& entity) {
    if (ActivityProperties* activity = owner.activity()) {
        return entity.NodeKind == KindInput ? static_cast<AttributeCollection*>(&*activity->Act_Inputs)
                                            : &*activity->Act_Outputs;
    }
    return owner.recordSet() ? &*owner.recordSet()->RecordSet_Outputs : nullptr;
}

ParameterCollection* listOf(LabelsD& owner, const ParameterProperties& entity) {
    if (auto* function = owner.entity<FunctionProperties>()) {
        return entity.NodeKind == KindFunctionInput ? &*function->Function_Inputs : &*function->Function_Outputs;
    }
    return owner.activity() ? &*owner.activity()->Act_Parameters : nullptr;
}

std::string& nameOf(AttributeProperties& entity) {
    return entity.Attribute_Name;
}
std::string& nameOf(ParameterProperties& entity) {
    return entity.Parameter_Name;
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
bool tellWhenTaken(ZoomForm& form, bool taken) {
    if (taken) {
        canvas::tellTakenName(form.messages());
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
bool renameMember(ZoomForm& form, LabelsD& node, Entity& entity, const std::string& name) {
    LabelsD* owner = standsAlone(form, node) ? nullptr : form.nodeNamed(entity.ParentKeyName);
    auto* list = owner ? listOf(*owner, entity) : nullptr;
    const std::string former = entity.Key;
    const bool isConstant = node.NodeType() == canvas::NodeTypeConstant;
    const bool taken = holds(list, name) || (isConstant && isTakenFromConstants(form, name));
    if (tellWhenTaken(form, taken && name != former) ||
        !takeName(node, list ? wholeKey(entity.ParentKeyName, entity.NodeKind, name) : name, name)) {
        return false;
    }
    KeptMirrors mirrors(form);
    mirrors.hold(entity);
    if (list) {
        rekey(*list, former, name);
        form.tellRenamed(renameOf(*owner, entity, name));
        noteKey(*owner, entity.NodeKind, former, name);
    }
    if (isConstant) {
        entity.ParentKeyName = name;  // a constant is its own owner
    }
    entity.Key = nameOf(entity) = name;
    mirrors.rekey();
    return true;
}

bool renameFunction(ZoomForm& form, LabelsD& node, FunctionProperties& function, const std::string& key) {
    LabelsD* owner = standsAlone(form, node) ? awaitedActivity(form, node) : form.nodeNamed(function.ParentKeyName());
    Act_FunctionsCollection* list = owner && owner->activity() ? &*owner->activity()->Act_Functions : nullptr;
    if (tellWhenTaken(form, key != function.Function_Key && holds(list, key)) || !takeName(node, key, key)) {
        return false;
    }
    KeptMirrors mirrors(form);
    mirrors.hold(function);
    form.tellRenamed({list ? owner->activity()->Act_Name : std::string(), KindFunction, function.Function_Key, key});
    if (list) {
        rekey(*list, function.Function_Key, key);
    }
    setKey(function, key);
    function.Function_Name = key;
    eachLinked(function, [&](ParameterProperties& parameter) {
        if (LabelsD* shown = form.Labels.byIndex(NearEnd(parameter).labelIn(form))) {
            shown->setKeyName(wholeKey(key, parameter.NodeKind, parameter.Key));
        }
    });
    mirrors.rekey();
    bringUp(form, node);
    return true;
}

}  // namespace

bool standsAlone(const ZoomForm& form, const LabelsD& node) {
    const auto alone = [&](const std::string& owner) { return owner.empty() || !form.isNameTaken(owner); };
    if (const auto* attribute = node.entity<AttributeProperties>()) {
        return alone(attribute->ParentKeyName);
    }
    if (const auto* parameter = node.entity<ParameterProperties>()) {
        return node.NodeType() == canvas::NodeTypeConstant || alone(parameter->ParentKeyName);
    }
    const auto* function = node.entity<FunctionProperties>();
    return !function || alone(function->ParentKeyName());
}

bool RenameNode(ZoomForm& form, LabelsD& node, const std::string& name) {
    if (auto* attribute = node.entity<AttributeProperties>()) {
        return renameMember(form, node, *attribute, name);
    }
    if (auto* parameter = node.entity<ParameterProperties>()) {
        return renameMember(form, node, *parameter, name);
    }
    auto* function = node.entity<FunctionProperties>();
    return function && renameFunction(form, node, *function, name);
}

void ReplaceFunction(ZoomForm& form, LabelsD& node, std::shared_ptr<FunctionProperties> function) {
    const bool expanded = node.Expanded;
    CollapseFunction(form, node.Index());
    FunctionProperties& former = *node.entity<FunctionProperties>();
    form.order.forgetFunction(former.Function_Key);
    UnSynchronizeFunction(form, former, true, nullptr);
    if (former.FunctionID != 0) {
        form.DeletedNodes->Add(former.FunctionID, KindFunction);
    }
    function->FunctionID = 0;
    const LabelsD* awaited = awaitedActivity(form, node);
    eachLinked(*function, [&](ParameterProperties& parameter) {
        parameter.ParentKeyName = function->Function_Key;
        parameter.ParentFunctionActivity = awaited ? awaited->activity()->Act_Name : std::string();
    });
    node.Properties = std::move(function);
    if (expanded) {
        ExpandFunction(form, node.Index());
    }
}

}  // namespace orvent::zoom
