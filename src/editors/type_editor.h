#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "editors/in_out_prop.h"
#include "editors/type_words.h"
#include "forms/dialog_port.h"
#include "forms/editor.h"
#include "forms/list.h"
#include "repository/catalogue.h"

namespace orvent::editors {

/// The logic of `DBDataTypes`, `DBFunctionType` and `DBActTypes`: the catalogue's entries of one kind beside an edit
/// area. Which of the fields below the kind has follows from its words.
class TypeEditor : public forms::Editor {
  public:
    /// `scenarioOpen`: entries cannot be deleted, since open scenarios hold their indices.
    TypeEditor(TypeKind kind, repository::Services& services, repository::Catalogue& catalogue,
               const forms::Dialogs& dialogs, bool scenarioOpen);

    const TypeKind kind;
    const TypeWords& words;

    TypeMode mode = TypeMode::browse;
    forms::List Types;  ///< the existing entries; the row's tag is the catalogue's index
    std::string txtName;
    std::string txtDescr;
    bool descrIsHint = false;  ///< the description is still the prompt of a new type
    std::string txtSQL;
    std::string txtLDL;
    // Option groups: the chosen option, from 0, or -1. The options stand for the values 1 and 2.
    int RsNoOption = -1;
    int ProvSemOption = -1;
    int ConsSemOption = -1;
    std::vector<forms::List> lists;  ///< beside `words.lists`
    std::string usedBy;              ///< which stored activities have the chosen type, in words

    const char* title() const { return words.titles[static_cast<std::size_t>(mode)]; }
    bool isEditing() const { return mode != TypeMode::browse; }
    bool canDelete() const { return !scenarioOpen_; }
    bool hasSelection() const { return Types.selected() > 0; }
    /// A function type has one output.
    bool canAdd(std::size_t list) const;

    void selectType(int position);
    void changeName(const std::string& text) { write(txtName, text); }
    void changeDescr(const std::string& text);
    void changeSQL(const std::string& text) { write(txtSQL, text); }
    void changeLDL(const std::string& text) { write(txtLDL, text); }
    void choose(int TypeEditor::*option, int value);

    void But_NEW();
    void But_EDIT();
    void But_DELETE();
    /// A press inside the rectangle of the disabled `But_DELETE`.
    void pressDisabledDelete();
    void But_SAVE() { Apply(); }
    void But_Cancel();
    /// True when the window closes.
    bool But_OK() { return mayClose(); }
    void add(std::size_t list);
    void remove(std::size_t list);

    /// The variables of the LDL template, as "@name" or "@name[ ]", in order; behind them what is wrong with the
    /// template, where something is.
    std::vector<std::string> templateVariables() const;

  protected:
    bool apply() override;
    std::optional<forms::ClosingQuestion> closingQuestion() const override;

  private:
    const entities::NameTable& table() const;
    const entities::NameTable& typesOf(TypeListRole role) const;
    std::int16_t index() const { return Types.Item(Types.selected())->Tag; }
    void write(std::string& field, const std::string& text);
    void refreshTables();
    void fillTypes(const std::string& selected);
    void clearFields();
    /// Shows the chosen type as it is stored. False when it could not be read whole; then only its name is shown.
    bool read();
    void readType();
    void show(const entities::ActivityTypeProperties& type);
    void show(const entities::FunctionTypeProperties& type);
    void readUsage();
    void addLine(TypeListRole role, const std::string& name, std::int16_t type);
    forms::List& list(TypeListRole role);
    bool check();
    bool confirmEmptyLists();
    // What follows a look at the stored types. False when something is in the way, which was told.
    bool store();
    bool isFree(std::optional<std::int16_t> stored) const;
    bool fits(std::optional<std::int16_t> stored) const;
    bool hasItsTypes() const;
    bool mayReplace(std::int16_t stored) const;
    std::optional<std::int16_t> storedIndex() const;
    bool write(std::optional<std::int16_t> stored);
    // All that is stored of a type but its name.
    std::vector<std::string> stateOf(const entities::ActivityTypeProperties& type) const;
    std::vector<std::string> stateOf(const entities::FunctionTypeProperties& type) const;
    entities::ActivityTypeProperties activityType(std::int16_t index) const;
    entities::FunctionTypeProperties functionType(std::int16_t index) const;
    const forms::List& list(TypeListRole role) const;

    repository::Services& services_;
    repository::Catalogue& catalogue_;
    const forms::Dialogs& dialogs_;
    const bool scenarioOpen_;
    std::string edited_;                  ///< the type that is edited, by the name with which that began
    std::vector<std::string> readState_;  ///< what it held when it was read
    std::optional<std::string> begun_;    ///< the name of a save that broke off: what stands there is this editor's own
    platform::TextLimit nameLimit_;       ///< of the type
    platform::TextLimit lineLimit_;       ///< of the names of its lines
};

}  // namespace orvent::editors
