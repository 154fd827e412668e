// The rows of the activity dialog's lists as they come and go.

#include <algorithm>

#include "editors/function_nodes.h"
#include "editors/list_rows.h"
#include "editors/set_act_prop_functions.h"
#include "entities/key_grammar.h"
#include "links/member_links.h"
#include "zoom/member_ties.h"

namespace orvent::editors {

using namespace entities;
using forms::ListRow;
using forms::Tree;

namespace {

/// An attribute or an output: it has a node above it that is no root.
bool isLeaf(const Tree::Node& node) {
    return node.parent() && node.parent()->parent();
}

/// The key by which a link names what the node stands for.
std::string linkedKey(const Tree::Node& node) {
    const std::string owner = SecondSegment(node.value().Key);
    const std::string key = AfterSecondDot(node.value().Key);
    return isDatabaseNode(node) ? owner + "." + key : wholeKey(owner, KindOutput, key);
}

}  // namespace

forms::List& SetActProp_Functions::listFor(const Tree::Node& node) {
    const ActList receives = isFunctionNode(node) || isConstantNode(node) ? kParameters
                             : isDatabaseNode(node)                       ? SelectedList
                                                                          : kInputs;
    SelectedList = receives;
    tabMoved();  // the log may stand in front
    return frontList();
}

std::string SetActProp_Functions::rowKeyOf(const Tree::Node& node) const {
    const std::string& key = node.value().Key;
    if (isFunctionNode(node) || isConstantNode(node)) {
        return SelectedList == kParameters ? AfterFirstDot(key) : std::string();
    }
    return isLeaf(node) && (isDatabaseNode(node) || SelectedList == kInputs)
               ? SecondSegment(key) + "_" + AfterSecondDot(key)
               : std::string();
}

void SetActProp_Functions::AddRow(Tree::Node& node, int position) {
    const std::string key = rowKeyOf(node);
    if (key.empty()) {
        return;
    }
    if (isFunctionNode(node)) {
        addFunction(node, position);
    } else if (SelectedList == kInputs) {
        addInput(node, key, position);
    } else if (SelectedList == kOutputs) {
        addOutput(node, key, position);
    } else {
        addParameter(node, key, position);
    }
    lists_.MarkRowInTree(*frontList().Item(key), SelectedList, true);
    for (const std::string& reached : lists_.neighbours(key)) {
        lists_.refresh(reached);
    }
    edited();
}

void SetActProp_Functions::addInput(const Tree::Node& node, const std::string& key, int position) {
    AttributeProperties input;
    input.Attribute_Name = newName(node, key, {kInputs, kOutputs});  // its output has the same
    input.Key = key;
    input.Attribute_Type = node.value().Tag;
    input.Tag = isDatabaseNode(node) ? TagRecordSet : TagActivity;
    input.NodeKind = KindInput;
    input.ParentKeyName = tempProp->Act_Name;
    input.ProvidedFrom->Add(SecondSegment(node.value().Key), static_cast<LinkType>(input.Tag), linkedKey(node));
    AttributeProperties& added = tempProp->Act_Inputs->AddFullAttribute(input, "", false, position);
    tempProp->Act_Inputs->Changed = true;
    lists_.add(kInputs, newRow(key, input.Attribute_Name, input.Tag, RowKind::input), position);
    if (!tempProp->Act_Outputs->Item(key)) {
        addMirror(added);
    }
    links::SynchronizeAttribute(ParForm, added, self());
}

/// The output of the same name, which the input provides.
void SetActProp_Functions::addMirror(const AttributeProperties& input) {
    const TagCode tag = passedOn(input.Tag);
    AttributeProperties& output =
        tempProp->Act_Outputs->Add(input.Attribute_Name, input.Attribute_Type, tag, input.Key);
    output.ParentKeyName = tempProp->Act_Name;
    output.ProvidedFrom->Add(tempProp->Act_Name, static_cast<LinkType>(tag), relativeKey(KindInput, input.Key));
    lists_.add(kOutputs, newRow(input.Key, input.Attribute_Name, tag, RowKind::output));
    links::SynchronizeAttribute(ParForm, output, self());
}

void SetActProp_Functions::addOutput(const Tree::Node& node, const std::string& key, int position) {
    AttributeProperties output;
    output.Attribute_Name = newName(node, key, {kOutputs});
    output.Key = key;
    output.Attribute_Type = node.value().Tag;
    output.Tag = TagRecordSet;
    output.NodeKind = KindOutput;
    output.ParentKeyName = tempProp->Act_Name;
    output.ProviderFor->Add(SecondSegment(node.value().Key), LinkRecordSet, linkedKey(node));
    tempProp->Act_Outputs->AddFullAttribute(output, "", false, position);
    lists_.add(kOutputs, newRow(key, output.Attribute_Name, TagRecordSet, RowKind::output), position);
}

void SetActProp_Functions::addParameter(const Tree::Node& node, const std::string& key, int position) {
    const bool constant = isConstantNode(node);
    ParameterProperties parameter;
    parameter.Parameter_Name = constant ? key : newName(node, key, {kParameters});
    parameter.Key = key;
    parameter.Parameter_Type = node.value().Tag;
    parameter.Tag = constant ? TagConstant : TagRecordSet;
    parameter.NodeKind = KindParameter;
    parameter.ParentKeyName = tempProp->Act_Name;
    if (constant) {
        parameter.RegulatedFrom->Add(key, LinkConstant, key);
    } else {
        parameter.RegulatedFrom->Add(SecondSegment(node.value().Key), LinkRecordSet, linkedKey(node));
    }
    tempProp->Act_Parameters->AddFullParameter(parameter, "", false, parameterPlace(position));
    lists_.add(kParameters,
               newRow(key, parameter.Parameter_Name, parameter.Tag, constant ? RowKind::constant : RowKind::parameter),
               position);
}

/// Where a parameter stands in its collection whose row stands at `position`: functions share the list.
int SetActProp_Functions::parameterPlace(int position) const {
    for (int row = std::min(position - 1, AttList[kParameters].Count()); row >= 1; --row) {
        const ListRow& above = *AttList[kParameters].Item(row);
        if (!isFunctionRow(above)) {
            return tempProp->Act_Parameters->positionOf(above.Key) + 1;
        }
    }
    return 1;
}

/// Brings a parameter to where its row stands now. The place counts the parameter itself while it stands above.
void SetActProp_Functions::moveParameter(const std::string& key, int position) {
    const int place = parameterPlace(position);
    Act_ParametersCollection& parameters = *tempProp->Act_Parameters;
    const int former = parameters.positionOf(key);
    parameters.move(former, former < place ? place - 1 : place);
}

void SetActProp_Functions::addFunction(const Tree::Node& node, int position) {
    const std::string name = AfterFirstDot(node.value().Key);
    if (FunctionProperties* function =
            tempProp->Act_Functions->AddFunction(ParForm, name, tempProp->Act_Name, SourceOwn)) {
        function->Changed = true;
        zoom::forgetRows(*function);
        if (ownerOfFunction(ParForm, *functionNode(ParForm, name))) {
            // It was taken out in this dialog, with its links, and its row is to go.
            links::UnSynchronizeFunction(ParForm, *function, true, self());
        }
    }
    lists_.add(kParameters, newRow(name, name, TagFunction, RowKind::function), position);
}

void SetActProp_Functions::note(std::int16_t id, NodeKindCode kind) {
    if (id != 0) {
        ParForm.DeletedNodes->Add(id, kind);
    }
}

void SetActProp_Functions::RemoveRow(int row) {
    const ListRow* shown = frontList().Item(row);
    if (!shown) {
        return;
    }
    const std::string key = shown->Key;
    const bool function = isFunctionRow(*shown);
    const std::vector<std::string> reached = lists_.neighbours(key);
    if (function) {
        removeFunction(key);
    } else if (SelectedList == kInputs) {
        removeInput(key);
    } else if (SelectedList == kOutputs) {
        removeOutput(key);
    } else {
        removeParameter(key);
    }
    for (const std::string& neighbour : reached) {
        lists_.refresh(neighbour);
    }
    edited();
}

/// Takes a member out of its list; its row in the repository is to go. False when there is none.
template <class List>
bool SetActProp_Functions::removeMember(List& members, const std::string& key, NodeKindCode kind) {
    auto* member = members.Item(key);
    if (!member) {
        return false;
    }
    links::unlinkMember(ParForm, *member, true, self());
    note(member->SubNode_ID, kind);
    members.Remove(key);
    return true;
}

void SetActProp_Functions::removeInput(const std::string& key) {
    lists_.unmark(kInputs, key);
    if (tempProp->Act_Parameters->Item(key)) {
        removeParameter(key);
    }
    const AttributeProperties* output = tempProp->Act_Outputs->Item(key);
    if (output && output->ProvidedFrom.count() == 1 && output->ProvidedFrom.peek()->Item(relativeKey(KindInput, key))) {
        removeOutput(key);
    }
    if (removeMember(*tempProp->Act_Inputs, key, KindInput)) {
        tempProp->Act_Inputs->Changed = true;
    }
    lists_.remove(kInputs, key);
}

void SetActProp_Functions::removeOutput(const std::string& key) {
    lists_.unmark(kOutputs, key);
    removeMember(*tempProp->Act_Outputs, key, KindOutput);
    lists_.remove(kOutputs, key);
}

void SetActProp_Functions::removeParameter(const std::string& key) {
    lists_.unmark(kParameters, key);
    removeMember(*tempProp->Act_Parameters, key, KindParameter);
    lists_.remove(kParameters, key);
}

/// A function that a node of the canvas shows becomes free again when the dialog is applied.
void SetActProp_Functions::removeFunction(const std::string& key) {
    lists_.unmark(kParameters, key);
    if (FunctionProperties* function = tempProp->Act_Functions->Item(key)) {
        links::UnSynchronizeFunction(ParForm, *function, true, self());
        note(function->FunctionID, KindFunction);
        tempProp->Act_Functions->Remove(key);
    }
    lists_.remove(kParameters, key);
}

void SetActProp_Functions::RemoveRowByTree(Tree::Node& node) {
    const std::string nodeKey = node.value().Key;
    const std::optional<ActList> number = lists_.marks().userOf(nodeKey);
    if (!number) {
        return;
    }
    int row = 0;
    for (const std::string& user : lists_.marks().rowsOf(nodeKey, *number)) {
        const int at = list(*number).positionOf(user);
        row = row == 0 ? at : std::min(row, at);
    }
    if (row != 0 && !unlink(nodeKey, *number, row)) {
        const ActList front = SelectedList;
        SelectedList = *number;
        RemoveRow(row);
        SelectedList = front;
    }
}

/// Takes the one link to the tree node away from a row that stays: it has other links, or the activity's type or the
/// wizard brought it. False when the row has to go.
bool SetActProp_Functions::unlink(const std::string& nodeKey, ActList number, int row) {
    const ListRow* shown = list(number).Item(row);
    if (!shown || isFunctionRow(*shown)) {
        return false;
    }
    const std::string key = shown->Key;
    TagCode tag = tagOf(*shown);
    const auto cut = [&](auto& entity, auto& links, int count, auto unsynchronise) {
        if (count < 2 && tag < TagTypeOutput) {
            return false;
        }
        for (int at = 1; at <= links.count(); ++at) {
            auto& link = *links->Item(at);
            if (treeKey(link.type(), link.key()) == nodeKey) {
                unsynchronise(ParForm, entity, link, self());
                links->Remove(at);
                break;
            }
        }
        if (number != kOutputs && tag < TagTypeOutput && links.count() > 0) {
            tag = tagOf(links->Item(1)->type());
        }
        entity.Tag = tag;
        entity.Changed = true;
        return true;
    };
    bool stays = false;
    if (number == kParameters) {
        if (ParameterProperties* parameter = tempProp->Act_Parameters->Item(key)) {
            stays = cut(*parameter, parameter->RegulatedFrom, parameter->RegulatedFrom.count(),
                        links::UnSynchronizeRegulatedFrom);
        }
    } else if (number == kOutputs) {
        if (AttributeProperties* output = tempProp->Act_Outputs->Item(key)) {
            stays = cut(*output, output->ProviderFor, output->ProviderFor.count() + output->ProvidedFrom.count(),
                        links::UnSynchronizeProviderFor);
        }
    } else if (AttributeProperties* input = tempProp->Act_Inputs->Item(key)) {
        stays = cut(*input, input->ProvidedFrom, input->ProvidedFrom.count() + input->RegulatedFrom.count(),
                    links::UnSynchronizeProvidedFrom);
        tempProp->Act_Inputs->Changed = true;
    }
    if (stays) {
        lists_.marks().unmark(nodeKey, number, key);
        list(number).alter(row, [&](ListRow& kept) { kept.Tag = static_cast<std::int16_t>(tag); });
        lists_.refresh(number, row);
        edited();
    }
    return stays;
}

void SetActProp_Functions::SetActivityType(int index) {
    const auto chosen = static_cast<std::int16_t>(index);
    if (catalogue_.tables.activityTypes.shown(chosen).empty()) {
        messages_.tell("UNIDENTIFIED ACTIVITY TYPE", {}, platform::Icon::critical);
        return;
    }
    if (index == tempProp->Act_Type) {
        return;
    }
    const platform::Busy busy(progress_);
    ActivityTypeProperties type;
    Act_FunctionsCollection functions;
    try {
        type = catalogue_.wholeActivityType(chosen);
        repository::WholeFunctionTypes types(catalogue_);
        for (const UsedFunctionProperties& brought : type.ActType_Functions) {
            functions.AddActivityTypeFunction(types, brought, tempProp->Act_Name,
                                              tempProp->Act_Name + "." + brought.Function_Name);
        }
    } catch (const platform::Fault& fault) {
        messages_.tell(fault.description(), {}, platform::Icon::critical);
        return;
    }
    tempProp->Act_SchemaNo = type.ActType_SchemaNo;
    tempProp->Act_Type = chosen;
    tempProp->Changed = true;
    const SchemaMarks::Bulk bulk(lists_.marks());
    removeTypeMembers();
    addTypeMembers(type, functions);
    refreshRows();
    edited();
}

/// What the former type brought goes, from the last row to the first.
void SetActProp_Functions::removeTypeMembers() {
    const auto removeTagged = [&](ActList number, TagCode tag, auto remove) {
        for (int row = list(number).Count(); row >= 1; --row) {
            if (tagOf(*list(number).Item(row)) == tag) {
                (this->*remove)(std::string(list(number).Item(row)->Key));
            }
        }
    };
    removeTagged(kOutputs, TagTypeOutput, &SetActProp_Functions::removeOutput);
    removeTagged(kParameters, TagTypeParameter, &SetActProp_Functions::removeParameter);
    removeTagged(kParameters, TagTypeFunction, &SetActProp_Functions::removeFunction);
}

void SetActProp_Functions::addTypeMembers(const ActivityTypeProperties& type, Act_FunctionsCollection& functions) {
    const std::string& owner = tempProp->Act_Name;
    for (const OutputProperties& brought : type.ActType_OutPuts) {
        const std::string key = owner + "." + brought.Output_Name;
        lists_.add(kOutputs, newRow(key, brought.Output_Name, TagTypeOutput, RowKind::output));
        tempProp->Act_Outputs->Add(key, brought.Output_Type, TagTypeOutput, key).ParentKeyName = owner;
    }
    for (const ParamProperties& brought : type.ActType_Parameters) {
        const std::string key = owner + "." + brought.Parameter_Name;
        lists_.add(kParameters, newRow(key, brought.Parameter_Name, TagTypeParameter, RowKind::parameter));
        tempProp->Act_Parameters->Add(brought.Parameter_Name, brought.Parameter_Type, TagTypeParameter, key)
            .ParentKeyName = owner;
    }
    for (int at = 1; at <= functions.Count(); ++at) {
        const std::shared_ptr<FunctionProperties> function = functions.share(at);
        lists_.add(kParameters,
                   newRow(function->Function_Key, function->Function_Name, TagTypeFunction, RowKind::function));
        tempProp->Act_Functions->append(function, function->Function_Key);
    }
}

}  // namespace orvent::editors
