#include "editors/type_editor.h"

#include "platform/fault.h"
#include "statements/ldl_variables.h"

namespace orvent::editors {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

namespace {

constexpr const char* kGone = "The repository has no such type any more";

}  // namespace

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

const entities::NameTable& TypeEditor::typesOf(TypeListRole role) const {
    return role == TypeListRole::function ? catalogue_.tables.functionTypes : catalogue_.tables.dataTypes;
}

/// The names as they are stored now. Indices that the lines hold go on meaning their names.
void TypeEditor::refreshTables() {
    repository::StatementCache repository = repository::openRepository(services_);
    catalogue_.refreshTables(repository);
    nameLimit_ = repository.textLimit(repository::kTypeNameWidth, platform::TextColumn::key);
    lineLimit_ = repository.textLimit(repository::kTypeLineWidth, platform::TextColumn::plain);
}

void TypeEditor::fillTypes(const std::string& selected) {
    Types.rebuild([this] {
        Types.Clear();
        for (const std::int16_t type : table().listed()) {
            const std::string& name = table().name(type);
            Types.add({.Key = name, .Text = name, .Tag = type});
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

bool TypeEditor::read() {
    clearFields();
    Saved = true;
    const forms::ListRow* row = Types.Item(Types.selected());
    if (!row) {
        return false;
    }
    txtName = row->Text;
    try {
        readType();
        readUsage();
        return true;
    } catch (const repository::TypeGone&) {
        usedBy = kGone;
    } catch (const platform::Fault& fault) {
        messages().tell(fault.description(), {}, Icon::critical);
    }
    return false;
}

void TypeEditor::readType() {
    if (kind == TypeKind::function) {
        const entities::FunctionTypeProperties type = catalogue_.wholeFunctionType(index());
        readState_ = stateOf(type);
        show(type);
    } else if (kind == TypeKind::activity) {
        const entities::ActivityTypeProperties type = catalogue_.wholeActivityType(index());
        readState_ = stateOf(type);
        show(type);
    }
}

void TypeEditor::readUsage() {
    const repository::TypeUsage usage = repository::usageOfType(services_, kind, txtName);
    usedBy = !usage.isStored    ? kGone
             : usage.count == 0 ? "Used by no stored activity"
             : usage.count == 1 ? "Used by 1 stored activity"
                                : "Used by " + std::to_string(usage.count) + " stored activities";
    if (usage.isStored && usage.count == 0 && !canDelete()) {
        usedBy += "; to delete it, close all scenarios";
    }
    std::string separator = "\nYours: ";
    for (const repository::TypeUsage::Activity& activity : usage.own) {
        usedBy += separator + activity.name + " (" + activity.scenario + ")";
        separator = ", ";
    }
}

void TypeEditor::show(const entities::FunctionTypeProperties& type) {
    txtDescr = type.FunctionType_Description;
    for (const entities::InputProperties& each : type.FunctionType_Inputs) {
        addLine(TypeListRole::input, each.Input_Name, each.Input_Type);
    }
    for (const entities::OutputProperties& each : type.FunctionType_Outputs) {
        addLine(TypeListRole::output, each.Output_Name, each.Output_Type);
    }
}

void TypeEditor::show(const entities::ActivityTypeProperties& type) {
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

void TypeEditor::addLine(TypeListRole role, const std::string& name, std::int16_t type) {
    list(role).add(inOutRow(name, type, typesOf(role).shown(type)));
}

const forms::List& TypeEditor::list(TypeListRole role) const {
    std::size_t at = 0;
    while (words.lists[at].role != role) {
        ++at;
    }
    return lists[at];
}

forms::List& TypeEditor::list(TypeListRole role) {
    return const_cast<forms::List&>(static_cast<const TypeEditor&>(*this).list(role));
}

void TypeEditor::But_NEW() {
    mode = TypeMode::create;
    edited_.clear();
    begun_.reset();
    clearFields();
    txtDescr = words.hint;
    descrIsHint = !txtDescr.empty();
    Saved = true;
}

/// What is edited is what is stored now, whole: what is missing here would go from the store.
void TypeEditor::But_EDIT() {
    if (!hasSelection() || isEditing()) {
        return;
    }
    if (!read()) {
        if (usedBy == kGone) {
            messages().tell(repository::TypeGone(txtName).description(), {}, Icon::critical);
        }
        return;
    }
    mode = TypeMode::edit;
    edited_ = txtName;
}

void TypeEditor::But_Cancel() {
    const forms::ListRow* row = Types.Item(Types.selected());
    std::string selected = row ? std::string(row->Key) : std::string();
    mode = TypeMode::browse;
    if (begun_) {  // it may stand in part
        selected = *begun_;
        begun_.reset();
        try {
            refreshTables();
        } catch (const platform::Fault& fault) {
            messages().tell(fault.description(), {}, Icon::critical);
        }
    }
    fillTypes(selected);
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
