#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "canvas/canvas_form.h"
#include "entities/name_tables.h"
#include "entities/type_records.h"
#include "forms/editor.h"
#include "zoom/zoom_view.h"

namespace orvent::editors {

/// What can be refused when an item is named and typed.
enum class ItemFault { noType, empty, numeric, dot, namedAsType };

struct ItemCheck {
    ItemFault fault;
    const char* words;
};

/// The words of one kind of node's dialog, and its checks in their order.
struct ItemWords {
    canvas::NodeTypeCode nodeType;
    const char* window;
    const char* caption;
    const char* nameField;
    const char* typeList;
    entities::NameTable entities::CatalogueTables::*types;
    bool tellsSave;  ///< its entity is marked for the next save
    std::span<const ItemCheck> checks;
};

/// `AttributeProp`, `ParameterProp`, `ConstantProp` and `FunctionProp`: each names and types one node of the zoom view.
/// Which of the four it is follows from the node.
class ItemProp : public forms::Editor {
  public:
    /// Whether the node has such a dialog. What only repeats another node of the view is edited at that one.
    static bool edits(const zoom::ZoomView& form, const canvas::LabelsD& node);

    /// The name of such a node as its dialog shows it; empty while it was given none.
    static std::string nameOf(const zoom::ZoomView& form, const canvas::LabelsD& node);

    ItemProp(zoom::ZoomView& form, canvas::LabelsD& node, entities::FunctionTypeSource& functionTypes);

    const ItemWords& words;
    std::string txtName;
    std::vector<std::string> Types;  ///< names of the catalogue; one that is gone only where the item has it
    int TypeIndex = -1;              ///< the chosen one, from 0
    const bool TypesInUse;           ///< false: the type is settled by what holds the item, and only `txtType` shows it
    std::string txtType;

    void changeName(const std::string& text) { txtName = text; }
    void selectType(int position) { TypeIndex = position; }
    /// Gives the node another name and leaves its type. False when the name is refused, which is told.
    bool rename(const std::string& name);
    /// The button. True when the dialog closes.
    bool OK_Click() { return Apply(); }

  protected:
    bool apply() override;
    void closing() override;

  private:
    std::int16_t* type() const;
    const entities::NameTable& table() const { return form_.catalogue().*words.types; }
    std::int16_t chosenType() const { return indices_[static_cast<std::size_t>(TypeIndex)]; }
    void readEntity();
    bool hasFault(ItemFault fault) const;
    bool check(bool ofType) const;
    static std::string headOf(const zoom::ZoomView& form, const canvas::LabelsD& node);
    bool typeIsChosen() const { return TypeIndex >= 0 && TypeIndex < static_cast<int>(Types.size()); }
    std::string keyOf(const std::string& name) const { return head_ + name; }
    void markChanged();

    zoom::ZoomView& form_;
    canvas::LabelsD& node_;
    entities::FunctionTypeSource& functionTypes_;
    std::vector<std::int16_t> indices_;  ///< of the types, in the catalogue
    std::string shownName_;              ///< as the dialog opened
    std::string head_;                   ///< of a function's key: the owner's name and a dot, or nothing
};

}  // namespace orvent::editors
