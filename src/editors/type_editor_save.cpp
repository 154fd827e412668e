// Checking and storing what a type editor holds.

#include "editors/type_editor.h"
#include "forms/name_check.h"
#include "platform/fault.h"

namespace orvent::editors {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

bool TypeEditor::check() {
    const std::string kindOfType = words.kindOfType;
    const std::string nameless = "PLEASE GIVE A NAME FOR THIS " + kindOfType;
    const std::array<forms::NameRule, 2> rules = {
        {{forms::NameFault::empty, nameless}, {forms::NameFault::dot, "DOTS ARE NOT ALLLOWED IN NAMES"}}};
    if (!forms::checkName(txtName, rules, messages())) {
        return false;
    }
    const bool undescribed = descrIsHint || forms::hasFault(txtDescr, forms::NameFault::empty);
    if (*words.descrField && undescribed) {
        messages().tell("PLEASE GIVE A DESCRIPTION FOR THIS " + kindOfType, {}, Icon::warning);
        return false;
    }
    return kind != TypeKind::function || confirmEmptyLists();
}

bool TypeEditor::confirmEmptyLists() {
    const std::string question = "\nARE YOU SURE YOU WANT TO SAVE THIS FUNCTION TYPE?";
    const auto agreed = [&](TypeListRole role, const char* missing) {
        return list(role).Count() > 0 ||
               messages().show(missing + question, {}, Icon::question, Buttons::yesNo) == Answer::yes;
    };
    return agreed(TypeListRole::input, "THERE ARE NO INPUTS SET.") &&
           agreed(TypeListRole::output, "THERE ARE NO OUTPUTS SET");
}

bool TypeEditor::apply() {
    if (!isEditing() || !check()) {
        return false;
    }
    try {
        if (!store()) {
            return false;
        }
    } catch (const repository::TypeGone& gone) {
        mode = TypeMode::create;  // what was typed stays
        begun_.reset();
        messages().tell(gone.description() + "\nSaving once more makes it a new type.", {}, Icon::critical);
        return false;
    } catch (const platform::Fault& fault) {
        messages().tell(fault.description(), {}, Icon::critical);
        return false;
    }
    mode = TypeMode::browse;
    fillTypes(std::string(txtName));
    return true;
}

bool TypeEditor::store() {
    refreshTables();
    const std::optional<std::int16_t> stored = storedIndex();
    if (!isFree(stored) || !fits(stored) || !hasItsTypes() || (stored && !mayReplace(*stored))) {
        return false;
    }
    begun_ = txtName;  // until it is known: some of it may stand although the line breaks
    if (!write(stored)) {
        return false;
    }
    begun_.reset();
    return true;
}

/// Where the store has what this editor works on: the type that is edited, or what a save that broke off has left.
std::optional<std::int16_t> TypeEditor::storedIndex() const {
    const auto begun = begun_ ? table().indexOf(*begun_) : std::nullopt;
    if (mode == TypeMode::create) {
        return begun;
    }
    const auto edited = table().indexOf(edited_);
    if (!edited && !begun) {
        throw repository::TypeGone(edited_);
    }
    return edited ? edited : begun;
}

bool TypeEditor::isFree(std::optional<std::int16_t> stored) const {
    const auto holder = table().indexOf(txtName);
    if (holder && holder != stored) {
        messages().tell(
            std::string("THIS NAME IS USED FOR ANOTHER ") + words.kindOfType + ".\nPLEASE GIVE ANOTHER NAME!",
            "DUPLICATE NAME!", Icon::critical);
        return false;
    }
    if (stored && scenarioOpen_ && table().goneIndexOf(txtName)) {
        messages().tell(
            "A type of this name was deleted, and an open scenario may still have it.\n"
            "Please close all scenarios first, or add it again as a new type.",
            {}, Icon::warning);
        return false;
    }
    return true;
}

bool TypeEditor::fits(std::optional<std::int16_t> stored) const {
    const auto tooLong = [this](const std::string& name, const std::string& excess, const char* of) {
        if (!excess.empty()) {
            messages().tell(name + " " + excess + of + ".\nPlease give a shorter one.", {}, Icon::warning);
        }
        return !excess.empty();
    };
    if (!(stored && table().name(*stored) == txtName) &&
        tooLong("The name", nameLimit_.excess(txtName), " of a type's name")) {
        return false;
    }
    for (const forms::List& list : lists) {
        for (const forms::ListRow& row : list.rows()) {
            if (tooLong("The name " + platform::quotedShort(row.Key), lineLimit_.excess(row.Key), " of a name")) {
                return false;
            }
        }
    }
    return true;
}

bool TypeEditor::hasItsTypes() const {
    for (std::size_t at = 0; at < lists.size(); ++at) {
        const entities::NameTable& types = typesOf(words.lists[at].role);
        for (const forms::ListRow& row : lists[at].rows()) {
            if (types.isGone(row.Tag)) {
                messages().tell(repository::TypeGone(types.name(row.Tag)).description() + "\n" + row.Key +
                                    " has it. Please remove that line, or add the type again.",
                                {}, Icon::warning);
                return false;
            }
        }
    }
    return true;
}

bool TypeEditor::mayReplace(std::int16_t stored) const {
    if (begun_ || mode != TypeMode::edit) {
        return true;
    }
    const std::vector<std::string> state = kind == TypeKind::function   ? stateOf(catalogue_.wholeFunctionType(stored))
                                           : kind == TypeKind::activity ? stateOf(catalogue_.wholeActivityType(stored))
                                                                        : readState_;
    return state == readState_ ||
           messages().show("Another user has changed the type " + edited_ + " since you began to edit it.\n" +
                               "Would you like to replace what is stored by what you see here?",
                           "Type Changed", Icon::question, Buttons::destroyYesNo) == Answer::yes;
}

bool TypeEditor::write(std::optional<std::int16_t> stored) {
    const std::int16_t at = stored.value_or(0);
    switch (kind) {
        case TypeKind::data:
            if (!stored) {
                catalogue_.SaveDataType(txtName);  // tells its faults
                return table().indexOf(txtName).has_value();
            }
            catalogue_.UpdateDataType(at, txtName);
            break;
        case TypeKind::function:
            stored ? catalogue_.UpdateFunctionType(functionType(at)) : catalogue_.SaveFunctionType(functionType(at));
            break;
        case TypeKind::activity:
            stored ? catalogue_.UpdateActivityType(activityType(at)) : catalogue_.SaveActivityType(activityType(at));
            break;
    }
    return true;
}

std::vector<std::string> TypeEditor::stateOf(const entities::FunctionTypeProperties& type) const {
    std::vector<std::string> state = {type.FunctionType_Description};
    const entities::NameTable& types = catalogue_.tables.dataTypes;
    for (const entities::InputProperties& each : type.FunctionType_Inputs) {
        state.insert(state.end(), {"INPUT", each.Input_Name, types.name(each.Input_Type)});
    }
    for (const entities::OutputProperties& each : type.FunctionType_Outputs) {
        state.insert(state.end(), {"OUTPUT", each.Output_Name, types.name(each.Output_Type)});
    }
    return state;
}

std::vector<std::string> TypeEditor::stateOf(const entities::ActivityTypeProperties& type) const {
    std::vector<std::string> state = {type.ActType_Description,
                                      type.ActType_SQL,
                                      type.ActType_LDL,
                                      std::to_string(type.ActType_SchemaNo),
                                      std::to_string(type.ActType_ProviderSemantics),
                                      std::to_string(type.ActType_ConsumerSemantics)};
    const entities::NameTable& types = catalogue_.tables.dataTypes;
    for (const entities::ParamProperties& each : type.ActType_Parameters) {
        state.insert(state.end(), {"PARAM", each.Parameter_Name, types.name(each.Parameter_Type)});
    }
    for (const entities::OutputProperties& each : type.ActType_OutPuts) {
        state.insert(state.end(), {"OUTPUT", each.Output_Name, types.name(each.Output_Type)});
    }
    for (const entities::UsedFunctionProperties& each : type.ActType_Functions) {
        state.insert(state.end(),
                     {"FUNCTION", each.Function_Name, catalogue_.tables.functionTypes.name(each.Function_Type)});
    }
    return state;
}

// A name that stands in a list twice is refused by the collection, before anything is written.

entities::FunctionTypeProperties TypeEditor::functionType(std::int16_t index) const {
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

entities::ActivityTypeProperties TypeEditor::activityType(std::int16_t index) const {
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

}  // namespace orvent::editors
