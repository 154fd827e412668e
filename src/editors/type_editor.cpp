#include "editors/type_editor.h"

#include "forms/name_check.h"
#include "platform/fault.h"
#include "statements/ldl_variables.h"

namespace orvent::editors {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

TypeEditor::TypeEditor(TypeKind kindOfType, repository::Services& services, repository::Catalogue& catalogue,
                       const forms::Dialogs& dialogs, bool scenarioOpen)
    : Editor(services.messages),
      kind(kindOfType),
      words(typeWords(kindOfType)),
      lists(words.lists.size()),
      services_(services),
      catalogue_(catalogue),
      dialogs_(dialogs),
      scenarioOpen_(scenarioOpen) {
    fillTypes({});
}

const entities::NameTable& TypeEditor::table() const {
    switch (kind) {
        case TypeKind::data:
            return catalogue_.tables.dataTypes;
        case TypeKind::function:
            return catalogue_.tables.functionTypes;
        case TypeKind::activity:
            break;
    }
    return catalogue_.tables.activityTypes;
}

void TypeEditor::loadTable() {
    static constexpr std::array<void (repository::Catalogue::*)(), 3> kLoads = {
        &repository::Catalogue::LoadDataTypes, &repository::Catalogue::LoadFunctionTypes,
        &repository::Catalogue::LoadActivityTypes};
    (catalogue_.*kLoads[static_cast<std::size_t>(kind)])();
}

void TypeEditor::fillTypes(const std::string& selected) {
    Types.rebuild([this] {
        Types.Clear();
        for (std::size_t at = 0; at < table().rows(); ++at) {
            const std::string& name = table().name(static_cast<std::int16_t>(at));
            Types.add({.Key = name, .Text = name});
        }
    });
    Types.select(Types.positionOf(selected));
    read();
}

bool TypeEditor::canAdd(std::size_t at) const {
    return kind != TypeKind::function || words.lists[at].role != TypeListRole::output || lists[at].Count() == 0;
}

void TypeEditor::write(std::string& field, const std::string& text) {
    if (field != text) {
        field = text;
        Saved = false;
    }
}

void TypeEditor::changeDescr(const std::string& text) {
    descrIsHint = descrIsHint && text == txtDescr;
    write(txtDescr, text);
}

void TypeEditor::choose(int TypeEditor::*option, int value) {
    if (this->*option != value) {
        this->*option = value;
        Saved = false;
    }
}

void TypeEditor::selectType(int position) {
    if (!isEditing() && position != Types.selected()) {
        Types.select(position);
        read();
    }
}

void TypeEditor::clearFields() {
    for (std::string* field : {&txtName, &txtDescr, &txtSQL, &txtLDL}) {
        field->clear();
    }
    usedBy.clear();
    descrIsHint = false;
    RsNoOption = ProvSemOption = ConsSemOption = -1;
    for (forms::List& each : lists) {
        each.Clear();
    }
}

void TypeEditor::read() {
    clearFields();
    Saved = true;
    const forms::ListRow* row = Types.Item(Types.selected());
    if (!row) {
        return;
    }
    txtName = row->Text;
    try {
        if (kind == TypeKind::function) {
            readFunctionType();
        } else if (kind == TypeKind::activity) {
            readActivityType();
        }
        readUsage();
    } catch (const platform::Fault& fault) {
        messages().tell(fault.description(), {}, Icon::critical);
    }
}

void TypeEditor::readUsage() {
    const repository::TypeUsage usage = repository::usageOfType(services_, kind, txtName);
    usedBy = !usage.isStored    ? "The repository has no such type any more"
             : usage.count == 0 ? "Used by no stored activity"
             : usage.count == 1 ? "Used by 1 stored activity"
                                : "Used by " + std::to_string(usage.count) + " stored activities";
    std::string separator = "\nYours: ";
    for (const repository::TypeUsage::Activity& activity : usage.own) {
        usedBy += separator + activity.name + " (" + activity.scenario + ")";
        separator = ", ";
    }
}

void TypeEditor::readFunctionType() {
    const entities::FunctionTypeProperties type = catalogue_.GetFunctionType(index());
    txtDescr = type.FunctionType_Description;
    for (const entities::InputProperties& each : type.FunctionType_Inputs) {
        addLine(TypeListRole::input, each.Input_Name, each.Input_Type);
    }
    for (const entities::OutputProperties& each : type.FunctionType_Outputs) {
        addLine(TypeListRole::output, each.Output_Name, each.Output_Type);
    }
}

void TypeEditor::readActivityType() {
    const auto option = [](std::int16_t value) { return value == 1 || value == 2 ? value - 1 : -1; };
    const entities::ActivityTypeProperties type = catalogue_.GetActivityType(index());
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

void TypeEditor::addLine(TypeListRole role, const std::string& name, std::int16_t type) {
    const entities::CatalogueTables& tables = catalogue_.tables;
    const entities::NameTable& names = role == TypeListRole::function ? tables.functionTypes : tables.dataTypes;
    list(role).add(inOutRow(name, type, names.name(type)));
}

forms::List& TypeEditor::list(TypeListRole role) {
    std::size_t at = 0;
    while (words.lists[at].role != role) {
        ++at;
    }
    return lists[at];
}

void TypeEditor::But_NEW() {
    mode = TypeMode::create;
    clearFields();
    txtDescr = words.hint;
    descrIsHint = !txtDescr.empty();
    Saved = true;
}

void TypeEditor::But_EDIT() {
    if (hasSelection()) {
        mode = TypeMode::edit;
        Saved = true;
    }
}

void TypeEditor::But_Cancel() {
    const forms::ListRow* row = Types.Item(Types.selected());
    mode = TypeMode::browse;
    fillTypes(row ? std::string(row->Key) : std::string());
}

void TypeEditor::But_DELETE() {
    const forms::ListRow* row = Types.Item(Types.selected());
    if (!row || !canDelete() || isEditing()) {
        return;
    }
    const Answer answer =
        messages().show(words.deleteQuestion + row->Text, words.deleteTitle, Icon::question, Buttons::destroyYesNo);
    if (answer != Answer::yes) {
        return;
    }
    static constexpr std::array<bool (repository::Catalogue::*)(std::int16_t), 3> kDeletes = {
        &repository::Catalogue::DeleteDataType, &repository::Catalogue::DeleteFunctionType,
        &repository::Catalogue::DeleteActivityType};
    const std::string name = row->Text;
    const bool gone = (catalogue_.*kDeletes[static_cast<std::size_t>(kind)])(index());
    fillTypes(gone ? std::string() : name);
}

void TypeEditor::pressDisabledDelete() {
    if (!canDelete()) {
        messages().tell(words.deleteBlocked, {}, Icon::information);
    }
}

std::optional<forms::ClosingQuestion> TypeEditor::closingQuestion() const {
    return forms::ClosingQuestion{.text = std::string("THIS ") + words.kindOfType +
                                          " HAS NOT BEEN SAVED.\nARE YOU SURE YOU WANT TO EXIT WITHOUT SAVING?",
                                  .title = "Closing Scenario",
                                  .icon = Icon::question,
                                  .buttons = Buttons::yesNo,
                                  .yes = forms::ClosingQuestion::Yes::dropsAndCloses};
}

void TypeEditor::add(std::size_t at) {
    if (!isEditing() || !canAdd(at)) {
        return;
    }
    InOutProp item(messages(), catalogue_.tables, words.lists[at].itemWord, lists[at]);
    dialogs_.show(item);
    if (item.added) {
        Saved = false;
    }
}

void TypeEditor::remove(std::size_t at) {
    if (isEditing() && lists[at].selected() > 0) {
        lists[at].remove(lists[at].selected());
        Saved = false;
    }
}

bool TypeEditor::check() {
    const std::string kindOfType = words.kindOfType;
    const std::string nameless = "PLEASE GIVE A NAME FOR THIS " + kindOfType;
    const std::array<forms::NameRule, 2> rules = {
        {{forms::NameFault::empty, nameless}, {forms::NameFault::dot, "DOTS ARE NOT ALLLOWED IN NAMES"}}};
    if (!forms::checkName(txtName, rules, messages())) {
        return false;
    }
    if (*words.descrField && txtDescr.empty()) {
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
        loadTable();
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
    const bool isNew = mode == TypeMode::create;
    switch (kind) {
        case TypeKind::data: {
            if (!isNew) {
                catalogue_.UpdateDataType(index(), txtName);
                return true;
            }
            loadTable();  // another user's deletion is no failure of this step
            const std::size_t before = table().rows();
            catalogue_.SaveDataType(txtName);
            return table().rows() > before;
        }
        case TypeKind::function: {
            const entities::FunctionTypeProperties type = functionType();
            isNew ? catalogue_.SaveFunctionType(type) : catalogue_.UpdateFunctionType(type);
            break;
        }
        case TypeKind::activity: {
            const entities::ActivityTypeProperties type = activityType();
            isNew ? catalogue_.SaveActivityType(type) : catalogue_.UpdateActivityType(type);
            break;
        }
    }
    return true;
}

// A name that stands in a list twice is refused by the collection, before anything is written.

entities::FunctionTypeProperties TypeEditor::functionType() {
    entities::FunctionTypeProperties type;
    type.FunctionType_Name = txtName;
    type.FunctionType_Description = txtDescr;
    type.FunctionType_NameIndex = mode == TypeMode::edit ? index() : std::int16_t{0};
    for (const forms::ListRow& row : list(TypeListRole::input).rows()) {
        type.FunctionType_Inputs->Add(row.Key, row.Tag, row.Key);
    }
    for (const forms::ListRow& row : list(TypeListRole::output).rows()) {
        type.FunctionType_Outputs->Add(row.Key, row.Tag, row.Key);
    }
    return type;
}

entities::ActivityTypeProperties TypeEditor::activityType() {
    const auto value = [](int option) { return static_cast<std::int16_t>(option + 1); };
    entities::ActivityTypeProperties type;
    type.ActType_Name = txtName;
    type.ActType_NameIndex = mode == TypeMode::edit ? index() : std::int16_t{0};
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

std::vector<std::string> TypeEditor::templateVariables() const {
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

}  // namespace orvent::editors
