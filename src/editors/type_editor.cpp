#include "editors/type_editor.h"

#include "editors/in_out_prop.h"
#include "platform/fault.h"

namespace orvent::editors {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

namespace {

constexpr const char* kGone = "The repository has no such type any more";

std::string wordsOf(const repository::TypeUsage& usage, bool canDelete) {
    std::string words = !usage.isStored    ? kGone
                        : usage.count == 0 ? "Used by no stored activity"
                        : usage.count == 1 ? "Used by 1 stored activity"
                                           : "Used by " + std::to_string(usage.count) + " stored activities";
    if (usage.isStored && usage.count == 0 && !canDelete) {
        words += "; to delete it, close all scenarios";
    }
    std::string separator = "\nYours: ";
    for (const repository::TypeUsage::Activity& activity : usage.own) {
        words += separator + activity.name + " (" + activity.scenario + ")";
        separator = ", ";
    }
    return words;
}

}  // namespace

TypeEditor::TypeEditor(TypeKind kindOfType, repository::Services& services, repository::Catalogue& catalogue,
                       const forms::Dialogs& dialogs, bool scenarioOpen)
    : Editor(services.messages),
      TypeFields(kindOfType, catalogue.tables),
      services_(services),
      catalogue_(catalogue),
      dialogs_(dialogs),
      scenarioOpen_(scenarioOpen) {
    fillTypes({});
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

bool TypeEditor::read() {
    clearFields();
    usedBy.clear();
    Saved = true;
    const forms::ListRow* row = Types.Item(Types.selected());
    if (!row) {
        return false;
    }
    txtName = row->Text;
    try {
        readType();
        usedBy = wordsOf(repository::usageOfType(services_, kind, txtName), canDelete());
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
        showType(type);
    } else if (kind == TypeKind::activity) {
        const entities::ActivityTypeProperties type = catalogue_.wholeActivityType(index());
        readState_ = stateOf(type);
        showType(type);
    }
}

void TypeEditor::But_NEW() {
    mode = TypeMode::create;
    edited_.clear();
    begun_.reset();
    clearFields();
    usedBy.clear();
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

}  // namespace orvent::editors
