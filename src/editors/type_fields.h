#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "editors/type_words.h"
#include "entities/name_tables.h"
#include "entities/type_records.h"
#include "forms/list.h"
#include "platform/dialogs.h"

namespace orvent::editors {

/// The edit area of a type: its fields and lists, and the records that they show and stand for. Which of them a kind
/// has follows from its words.
class TypeFields {
  public:
    /// The tables outlive the fields.
    TypeFields(TypeKind kind, const entities::CatalogueTables& tables);

    const TypeKind kind;
    const TypeWords& words;

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

    /// A function type has one output.
    bool canAdd(std::size_t list) const;
    /// The variables of the LDL template, as "@name" or "@name[ ]", in order; behind them what is wrong with the
    /// template, where something is.
    std::vector<std::string> templateVariables() const;

  protected:
    ~TypeFields() = default;

    void clearFields();
    void showType(const entities::ActivityTypeProperties& type);
    void showType(const entities::FunctionTypeProperties& type);

    // What the fields stand for, under the type's index. A name that stands in a list twice is a `Fault`.
    entities::ActivityTypeProperties activityType(std::int16_t index) const;
    entities::FunctionTypeProperties functionType(std::int16_t index) const;

    // All that is stored of a type but its name.
    std::vector<std::string> stateOf(const entities::ActivityTypeProperties& type) const;
    std::vector<std::string> stateOf(const entities::FunctionTypeProperties& type) const;

    /// The catalogue's table of the kind.
    const entities::NameTable& table() const;
    const forms::List& list(TypeListRole role) const;
    /// Tells the first thing that a save would refuse of the fields alone, and asks whether empty lists are meant.
    bool mayBeSaved(platform::MessageBox& messages) const;
    /// The first line whose type is gone, in words; empty when all are there.
    std::string goneLine() const;

  private:
    bool confirmEmptyLists(platform::MessageBox& messages) const;
    forms::List& list(TypeListRole role);
    const entities::NameTable& typesOf(TypeListRole role) const;
    void addLine(TypeListRole role, const std::string& name, std::int16_t type);

    const entities::CatalogueTables& tables_;
};

}  // namespace orvent::editors
