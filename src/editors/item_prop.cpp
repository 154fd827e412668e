#include "editors/item_prop.h"

#include <algorithm>
#include <array>
#include <utility>

#include "forms/name_check.h"
#include "zoom/rename_node.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;

namespace {

constexpr const char* kDot = "DOTS ARE NOT ALLLOWED IN NAMES";
constexpr const char* kNumeric = "NUMERIC NAMES ARE NOT ALLOWED!\nPLEASE GIVE A VALID NAME";

constexpr std::array<ItemCheck, 4> kItemChecks = {{
    {ItemFault::empty, "PLEASE GIVE A VALID NAME"},
    {ItemFault::numeric, kNumeric},
    {ItemFault::noType, "PLEASE SELECT ONE OF THE SUPPORTED DATATYPES"},
    {ItemFault::dot, kDot},
}};

constexpr std::array<ItemCheck, 5> kFunctionChecks = {{
    {ItemFault::noType, "PLEASE SELECT ONE OF THE SUPPORTED FUNCTION TYPES"},
    {ItemFault::empty, "PLEASE GIVE A NAME FOR THIS FUNCTION "},
    {ItemFault::dot, kDot},
    {ItemFault::numeric, kNumeric},
    {ItemFault::namedAsType, "THE FUNCTION'S NAME AND THE FUNCTION TYPE's NAME \nCAN NOT BE THE SAME!"},
}};

const std::array<ItemWords, 4> kItemWords = {{
    {canvas::NodeTypeAttribute, "AttributeProp", "Attribute Properties", "txtAttributeName", "DataTypes",
     &CatalogueTables::dataTypes, true, kItemChecks},
    {canvas::NodeTypeParameter, "ParameterProp", "Parameter Properties", "txtParamName", "DataTypes",
     &CatalogueTables::dataTypes, true, kItemChecks},
    {canvas::NodeTypeConstant, "ConstantProp", "Constant Properties", "txtConstName", "ConstantTypes",
     &CatalogueTables::dataTypes, false, kItemChecks},
    {canvas::NodeTypeFunction, "FunctionProp", "Function Properties", "txtFunctionName", "FunctionTypes",
     &CatalogueTables::functionTypes, true, kFunctionChecks},
}};

const ItemWords* wordsOf(const LabelsD& node) {
    for (const ItemWords& row : kItemWords) {
        if (row.nodeType == node.NodeType()) {
            return &row;
        }
    }
    return nullptr;
}

/// A constant's type is settled once something is regulated by it.
bool mayChooseType(const zoom::ZoomView& form, const LabelsD& node) {
    const auto* constant = node.NodeType() == canvas::NodeTypeConstant ? node.entity<ParameterProperties>() : nullptr;
    return constant ? constant->RegulatorFor.count() == 0 : zoom::standsAlone(form, node);
}

}  // namespace

bool ItemProp::edits(const zoom::ZoomView& form, const LabelsD& node) {
    const bool holdsEntity =
        node.entity<AttributeProperties>() || node.entity<ParameterProperties>() || node.entity<FunctionProperties>();
    return wordsOf(node) && holdsEntity && form.bearsName(node);
}

ItemProp::ItemProp(zoom::ZoomView& form, LabelsD& node, FunctionTypeSource& functionTypes)
    : Editor(form.messages()),
      words(*wordsOf(node)),
      TypesInUse(mayChooseType(form, node)),
      form_(form),
      node_(node),
      functionTypes_(functionTypes) {
    readEntity();
    shownName_ = txtName;
}

std::string ItemProp::nameOf(const zoom::ZoomView& form, const LabelsD& node) {
    if (const auto* attribute = node.entity<AttributeProperties>()) {
        return attribute->Attribute_Name;
    }
    if (const auto* parameter = node.entity<ParameterProperties>()) {
        return parameter->Parameter_Name;
    }
    const auto& function = *node.entity<FunctionProperties>();
    return function.Function_Name.substr(headOf(form, node).size());
}

/// Of a function's key.
std::string ItemProp::headOf(const zoom::ZoomView& form, const LabelsD& node) {
    const auto* function = node.entity<FunctionProperties>();
    const std::string head = function ? function->ParentKeyName() + "." : std::string();
    return function && !zoom::standsAlone(form, node) && function->Function_Name.starts_with(head) ? head
                                                                                                   : std::string();
}

void ItemProp::readEntity() {
    txtName = nameOf(form_, node_);
    head_ = headOf(form_, node_);
    const bool fresh = txtName.empty();
    indices_ = table().listed(fresh ? -1 : *type());
    for (const std::int16_t index : indices_) {
        Types.push_back(table().shown(index));
    }
    if (fresh) {
        txtName = node_.Caption();
        return;
    }
    if (const auto held = std::find(indices_.begin(), indices_.end(), *type()); held != indices_.end()) {
        TypeIndex = static_cast<int>(held - indices_.begin());
    }
    txtType = typeIsChosen() ? Types[static_cast<std::size_t>(TypeIndex)] : std::string();
}

std::int16_t* ItemProp::type() const {
    if (auto* attribute = node_.entity<AttributeProperties>()) {
        return &attribute->Attribute_Type;
    }
    if (auto* parameter = node_.entity<ParameterProperties>()) {
        return &parameter->Parameter_Type;
    }
    return &node_.entity<FunctionProperties>()->Function_Type;
}

bool ItemProp::hasFault(ItemFault fault) const {
    const bool kept = txtName == shownName_;  // a brought name has a dot, and stays valid
    switch (fault) {
        case ItemFault::noType:
            return TypesInUse && !typeIsChosen();
        case ItemFault::empty:
            return forms::hasFault(txtName, forms::NameFault::empty);
        case ItemFault::numeric:
            return !kept && forms::hasFault(txtName, forms::NameFault::numeric);
        case ItemFault::dot:
            return !kept && forms::hasFault(txtName, forms::NameFault::dot);
        case ItemFault::namedAsType:
            return typeIsChosen() && txtName == table().name(chosenType());
    }
    return false;
}

bool ItemProp::check(bool ofType) const {
    for (const ItemCheck& row : words.checks) {
        if ((ofType || row.fault != ItemFault::noType) && hasFault(row.fault)) {
            messages().tell(row.words, {}, platform::Icon::warning);
            return false;
        }
    }
    return true;
}

bool ItemProp::rename(const std::string& name) {
    txtName = name;
    if (txtName == shownName_) {
        return true;
    }
    if (!check(false) || !zoom::RenameNode(form_, node_, keyOf(txtName))) {
        return false;
    }
    markChanged();
    form_.touch();
    form_.rules().edited(form_);
    return true;
}

bool ItemProp::apply() {
    if (!check(true)) {
        return false;
    }
    const bool renamed = txtName != shownName_;
    const std::int16_t chosen = TypesInUse ? chosenType() : *type();
    const bool retyped = chosen != *type();
    std::shared_ptr<FunctionProperties> rebuilt;
    if (const auto* function = node_.entity<FunctionProperties>(); function && retyped) {
        // Read before anything changes, since the repository may fail.
        rebuilt = fillFunctionFromType(*function->Clone(), functionTypes_, chosen);
    }
    if (renamed && !zoom::RenameNode(form_, node_, keyOf(txtName))) {
        return false;
    }
    if (rebuilt) {
        const auto& named = *node_.entity<FunctionProperties>();
        rebuilt->Function_Name = named.Function_Name;
        rebuilt->Function_Key = named.Function_Key;
        zoom::ReplaceFunction(form_, node_, std::move(rebuilt));
    } else if (retyped) {
        *type() = chosen;
    }
    markChanged();
    if (renamed || retyped) {
        form_.touch();
        form_.rules().edited(form_);
    }
    return true;
}

void ItemProp::markChanged() {
    if (auto* attribute = node_.entity<AttributeProperties>()) {
        attribute->LabelIndex = node_.Index();
        attribute->Changed = true;
    } else if (auto* parameter = node_.entity<ParameterProperties>()) {
        parameter->LabelIndex = node_.Index();
        parameter->Changed = parameter->Changed || words.tellsSave;
    } else if (auto* function = node_.entity<FunctionProperties>()) {
        function->Changed = true;
    }
    if (typeIsChosen()) {
        node_.setToolTipText(keyOf(txtName) + "(" + table().name(chosenType()) + ")");
    }
}

void ItemProp::closing() {
    const bool named = !forms::hasFault(txtName, forms::NameFault::empty);
    node_.setReady(named && (!TypesInUse || typeIsChosen()));
}

}  // namespace orvent::editors
