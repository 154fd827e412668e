#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "editors/type_fields.h"
#include "forms/dialog_port.h"
#include "forms/editor.h"
#include "forms/list.h"
#include "repository/catalogue.h"

namespace orvent::editors {

/// The logic of `DBDataTypes`, `DBFunctionType` and `DBActTypes`: the catalogue's entries of one kind beside an edit
/// area.
class TypeEditor : public forms::Editor, public TypeFields {
  public:
    /// `scenarioOpen`: entries cannot be deleted, since open scenarios hold their indices.
    TypeEditor(TypeKind kind, repository::Services& services, repository::Catalogue& catalogue,
               const forms::Dialogs& dialogs, bool scenarioOpen);

    TypeMode mode = TypeMode::browse;
    forms::List Types;   ///< the existing entries; the row's tag is the catalogue's index
    std::string usedBy;  ///< which stored activities have the chosen type, in words

    const char* title() const { return words.titles[static_cast<std::size_t>(mode)]; }
    bool isEditing() const { return mode != TypeMode::browse; }
    bool canDelete() const { return !scenarioOpen_; }
    bool hasSelection() const { return Types.selected() > 0; }

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

  protected:
    bool apply() override;
    std::optional<forms::ClosingQuestion> closingQuestion() const override;

  private:
    std::int16_t index() const { return Types.Item(Types.selected())->Tag; }
    void write(std::string& field, const std::string& text);
    void refreshTables();
    void fillTypes(const std::string& selected);
    /// Shows the chosen type as it is stored. False when it could not be read whole; then only its name is shown.
    bool read();
    void readType();
    // What follows a look at the stored types. False when something is in the way, which was told.
    bool store();
    bool isFree(std::optional<std::int16_t> stored) const;
    bool fits(std::optional<std::int16_t> stored) const;
    bool hasItsTypes() const;
    bool mayReplace(std::int16_t stored) const;
    std::optional<std::int16_t> storedIndex() const;
    bool write(std::optional<std::int16_t> stored);

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
