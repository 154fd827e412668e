#include "editors/type_fields.h"

#include <array>

#include "editors/in_out_prop.h"
#include "forms/name_check.h"
#include "platform/fault.h"
#include "repository/catalogue.h"
#include "statements/ldl_variables.h"

namespace orvent::editors {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

TypeFields::TypeFields(TypeKind kindOfType, const entities::CatalogueTables& tables)
    : kind(kindOfType), words(typeWords(kindOfType)), lists(words.lists.size()), tables_(tables) {}

const entities::NameTable& TypeFields::table() const {
    switch (kind) {
        case TypeKind::data:
            return tables_.dataTypes;
        case TypeKind::function:
            return tables_.functionTypes;
        case TypeKind::activity:
            break;
    }
    return tables_.activityTypes;
}

const entities::NameTable& TypeFields::typesOf(TypeListRole role) const {
    return role == TypeListRole::function ? tables_.functionTypes : tables_.dataTypes;
}

bool TypeFields::canAdd(std::size_t at) const {
    return kind != TypeKind::function || words.lists[at].role != TypeListRole::output || lists[at].Count() == 0;
}

void TypeFields::clearFields() {
    for (std::string* field : {&txtName, &txtDescr, &txtSQL, &txtLDL}) {
        field->clear();
    }
    descrIsHint = false;
    RsNoOption = ProvSemOption = ConsSemOption = -1;
    for (forms::List& each : lists) {
        each.Clear();
    }
}

void TypeFields::showType(const entities::FunctionTypeProperties& type) {
    txtDescr = type.FunctionType_Description;
    for (const entities::InputProperties& each : type.FunctionType_Inputs) {
        addLine(TypeListRole::input, each.Input_Name, each.Input_Type);
    }
    for (const entities::OutputProperties& each : type.FunctionType_Outputs) {
        addLine(TypeListRole::output, each.Output_Name, each.Output_Type);
    }
}

void TypeFields::showType(const entities::ActivityTypeProperties& type) {
    const auto option = [](std::int16_t value) { return value == 1 || value == 2 ? value - 1 : -1; };
    txtDescr = type.ActType_Description;
    txtSQL = type.ActType_SQL;
    txtLDL = type.ActType_LDL;
    RsNoOption = option(type.ActType_SchemaNo);
    ProvSemOption = option(type.ActType_ProviderSemantics);
    ConsSemOption = option(type.ActType_ConsumerSemantics);
    for (const entities::ParamProperties& each : type.ActType_Parameters) {
        addLine(TypeListRole::parameter, each.Parameter_Name, each.Parameter_Type);
    }
    for (const entities::OutputProperties& each : type.ActType_OutPuts) {
        addLine(TypeListRole::output, each.Output_Name, each.Output_Type);
    }
    for (const entities::UsedFunctionProperties& each : type.ActType_Functions) {
        addLine(TypeListRole::function, each.Function_Name, each.Function_Type);
    }
}

void TypeFields::addLine(TypeListRole role, const std::string& name, std::int16_t type) {
    list(role).add(inOutRow(name, type, typesOf(role).shown(type)));
}

const forms::List& TypeFields::list(TypeListRole role) const {
    std::size_t at = 0;
    while (words.lists[at].role != role) {
        ++at;
    }
    return lists[at];
}

forms::List& TypeFields::list(TypeListRole role) {
    return const_cast<forms::List&>(static_cast<const TypeFields&>(*this).list(role));
}

std::vector<std::string> TypeFields::templateVariables() const {
    std::vector<std::string> found;
    statements::LDLVariableCollection variables;
    std::string wrong;
    try {
        statements::scanTemplate(txtLDL, variables);
    } catch (const platform::Fault& fault) {
        wrong = fault.description();
    }
    for (const statements::LDLVariable& variable : variables) {
        found.push_back("@" + variable.VariableName + (variable.SubVariables ? "[ ]" : ""));
    }
    if (!wrong.empty()) {
        found.push_back(wrong);
    }
    return found;
}

std::vector<std::string> TypeFields::stateOf(const entities::FunctionTypeProperties& type) const {
    std::vector<std::string> state = {type.FunctionType_Description};
    const entities::NameTable& types = tables_.dataTypes;
    for (const entities::InputProperties& each : type.FunctionType_Inputs) {
        state.insert(state.end(), {"INPUT", each.Input_Name, types.name(each.Input_Type)});
    }
    for (const entities::OutputProperties& each : type.FunctionType_Outputs) {
        state.insert(state.end(), {"OUTPUT", each.Output_Name, types.name(each.Output_Type)});
    }
    return state;
}

std::vector<std::string> TypeFields::stateOf(const entities::ActivityTypeProperties& type) const {
    std::vector<std::string> state = {type.ActType_Description,
                                      type.ActType_SQL,
                                      type.ActType_LDL,
                                      std::to_string(type.ActType_SchemaNo),
                                      std::to_string(type.ActType_ProviderSemantics),
                                      std::to_string(type.ActType_ConsumerSemantics)};
    const entities::NameTable& types = tables_.dataTypes;
    for (const entities::ParamProperties& each : type.ActType_Parameters) {
        state.insert(state.end(), {"PARAM", each.Parameter_Name, types.name(each.Parameter_Type)});
    }
    for (const entities::OutputProperties& each : type.ActType_OutPuts) {
        state.insert(state.end(), {"OUTPUT", each.Output_Name, types.name(each.Output_Type)});
    }
    for (const entities::UsedFunctionProperties& each : type.ActType_Functions) {
        state.insert(state.end(), {"FUNCTION", each.Function_Name, tables_.functionTypes.name(each.Function_Type)});
    }
    return state;
}

entities::FunctionTypeProperties TypeFields::functionType(std::int16_t index) const {
    entities::FunctionTypeProperties type;
    type.FunctionType_Name = txtName;
    type.FunctionType_Description = txtDescr;
    type.FunctionType_NameIndex = index;
    for (const forms::ListRow& row : list(TypeListRole::input).rows()) {
        type.FunctionType_Inputs->Add(row.Key, row.Tag, row.Key);
    }
    for (const forms::ListRow& row : list(TypeListRole::output).rows()) {
        type.FunctionType_Outputs->Add(row.Key, row.Tag, row.Key);
    }
    return type;
}

entities::ActivityTypeProperties TypeFields::activityType(std::int16_t index) const {
    const auto value = [](int option) { return static_cast<std::int16_t>(option + 1); };
    entities::ActivityTypeProperties type;
    type.ActType_Name = txtName;
    type.ActType_NameIndex = index;
    type.ActType_Description = txtDescr + " ";
    type.ActType_SQL = txtSQL;
    type.ActType_LDL = txtLDL;
    type.ActType_SchemaNo = value(RsNoOption);
    type.ActType_ProviderSemantics = value(ProvSemOption);
    type.ActType_ConsumerSemantics = value(ConsSemOption);
    for (const forms::ListRow& row : list(TypeListRole::parameter).rows()) {
        type.ActType_Parameters->Add(row.Key, row.Tag, row.Key);
    }
    for (const forms::ListRow& row : list(TypeListRole::output).rows()) {
        type.ActType_OutPuts->Add(row.Key, row.Tag, row.Key);
    }
    for (const forms::ListRow& row : list(TypeListRole::function).rows()) {
        type.ActType_Functions->Add(row.Key, row.Tag, row.Key);
    }
    return type;
}

bool TypeFields::mayBeSaved(platform::MessageBox& messages) const {
    const std::string kindOfType = words.kindOfType;
    const std::string nameless = "PLEASE GIVE A NAME FOR THIS " + kindOfType;
    const std::array<forms::NameRule, 2> rules = {
        {{forms::NameFault::empty, nameless}, {forms::NameFault::dot, "DOTS ARE NOT ALLLOWED IN NAMES"}}};
    if (!forms::checkName(txtName, rules, messages)) {
        return false;
    }
    const bool undescribed = descrIsHint || forms::hasFault(txtDescr, forms::NameFault::empty);
    if (*words.descrField && undescribed) {
        messages.tell("PLEASE GIVE A DESCRIPTION FOR THIS " + kindOfType, {}, Icon::warning);
        return false;
    }
    return kind != TypeKind::function || confirmEmptyLists(messages);
}

bool TypeFields::confirmEmptyLists(platform::MessageBox& messages) const {
    const std::string question = "\nARE YOU SURE YOU WANT TO SAVE THIS FUNCTION TYPE?";
    const auto agreed = [&](TypeListRole role, const char* missing) {
        return list(role).Count() > 0 ||
               messages.show(missing + question, {}, Icon::question, Buttons::yesNo) == Answer::yes;
    };
    return agreed(TypeListRole::input, "THERE ARE NO INPUTS SET.") &&
           agreed(TypeListRole::output, "THERE ARE NO OUTPUTS SET");
}

std::string TypeFields::goneLine() const {
    for (std::size_t at = 0; at < lists.size(); ++at) {
        const entities::NameTable& types = typesOf(words.lists[at].role);
        for (const forms::ListRow& row : lists[at].rows()) {
            if (types.isGone(row.Tag)) {
                return repository::TypeGone(types.name(row.Tag)).description() + "\n" + row.Key + " has it.";
            }
        }
    }
    return {};
}

}  // namespace orvent::editors
