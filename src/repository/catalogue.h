#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entities/name_tables.h"
#include "entities/type_records.h"
#include "repository/services.h"

namespace orvent::repository {

// Characters of the columns for the name of a type and for the names of its lines, in the creation script.
inline constexpr std::size_t kTypeNameWidth = 1000, kTypeLineWidth = 4000;

/// A type that another user has deleted meanwhile.
class TypeGone : public platform::Fault {
  public:
    explicit TypeGone(const std::string& name) : Fault("The repository has no type " + name + " any more.") {}
};

/// What is told of an activity type where one is chosen.
struct ActivityTypeWords {
    std::string name, description;
    int schemata = 0;  ///< of an activity, 1 or 2
};

/// The type catalogue: its name tables, and the ways from and to the repository. Every operation opens a connection
/// of its own, and nothing runs in a transaction. Save and update operations throw the first error and leave what was
/// written before it; deletions tell theirs.
class Catalogue : public entities::FunctionTypeSource {
  public:
    /// `endProgram` ends the program at once, without questions; `workIsOpen` tells whether that would lose any. While
    /// work is open it holds indices of the name tables, which go on meaning their names.
    Catalogue(Services& services, std::function<void()> endProgram, std::function<bool()> workIsOpen = {});

    entities::CatalogueTables tables;

    // Refill the name tables, which keep their rows until the new ones are read. A failure is told and ends the
    // program; while work is open it is thrown instead, and only the step ends.
    void LoadDataTypes();
    void LoadFunctionTypes();
    void LoadActivityTypes();

    /// The same for all three over an open connection, with every index kept. Throws what fails.
    void refreshTables(StatementCache& repository);

    /// All that are stored, in the order of the repository. Throws what fails.
    std::vector<ActivityTypeWords> activityTypeWords();

    // Read one whole type by its index. A failed read tells nothing and gives what was read before it; an index out of
    // bounds is a fault.
    entities::ActivityTypeProperties GetActivityType(std::int16_t index);
    entities::FunctionTypeProperties GetFunctionType(std::int16_t index) override;

    /// The same for a step that must not begin with a part of a type: a failed read throws, and a type that the
    /// repository no longer has is a `TypeGone`.
    entities::ActivityTypeProperties wholeActivityType(std::int16_t index);
    entities::FunctionTypeProperties wholeFunctionType(std::int16_t index);

    /// The index of a data type. An unknown one is offered to be added; that of the first one when the user declines.
    std::int16_t DataTypeIndex(const std::string& name);
    std::int16_t FunctionTypeIndex(const std::string& name) const;  ///< that of the first one when unknown
    std::int16_t ActivityTypeIndex(const std::string& name) const;  ///< likewise

    // An update of a type that is gone throws `TypeGone` before anything is written. One that breaks off may have
    // stored the new name already; the next reload finds that out, and the index has the name that is stored.
    void SaveFunctionType(const entities::FunctionTypeProperties& type);
    void UpdateFunctionType(const entities::FunctionTypeProperties& type);
    void SaveActivityType(const entities::ActivityTypeProperties& type);
    void UpdateActivityType(const entities::ActivityTypeProperties& type);

    // The same over an open connection and without a word; the tables know the type at once.
    void addDataType(StatementCache& repository, const std::string& name);
    void addFunctionType(StatementCache& repository, const entities::FunctionTypeProperties& type);
    void addActivityType(StatementCache& repository, const entities::ActivityTypeProperties& type);

    /// Adds a data type and gives its index. A failure is told and gives that of the first one.
    std::int16_t SaveDataType(const std::string& name);
    void UpdateDataType(std::int16_t oldIndex, const std::string& newName);

    // True when the type is gone; that another user has deleted it before is told. A type that the repository still
    // refers to loses its parameter rows all the same.
    bool DeleteFunctionType(std::int16_t index);
    bool DeleteActivityType(std::int16_t index);
    bool DeleteDataType(std::int16_t index);

  private:
    void loadOrEnd(const std::function<void(StatementCache&)>& load);
    bool keepsIndices() const { return workIsOpen_ && workIsOpen_(); }
    void readDataTypes(StatementCache& repository, bool keepIndices);
    void readFunctionTypes(StatementCache& repository, bool keepIndices);
    void readActivityTypes(StatementCache& repository, bool keepIndices);
    void reload(entities::NameTable& table, const std::vector<std::string>& names, bool keepIndices);
    template <class Write>
    bool rename(entities::NameTable& table, std::int16_t index, const std::string& newName, Write write);
    void settleRenaming();
    // False when the repository has no such type.
    template <class Type>
    bool read(Type& type);
    template <class Type>
    Type readAll(Type type);
    template <class Type>
    Type readWhatComes(Type type);
    bool removeType(const std::string& name, std::initializer_list<std::string_view> statements,
                    const std::string& deleted, const std::string& refusal);
    void tell(const std::string& text);

    Services& services_;
    std::function<void()> endProgram_;
    std::function<bool()> workIsOpen_;

    /// A new name whose update broke off.
    struct Renaming {
        entities::NameTable* table;
        std::int16_t index;
        std::string newName;
    };
    std::optional<Renaming> renaming_;
};

/// The function types of a catalogue, each read whole or not at all.
class WholeFunctionTypes : public entities::FunctionTypeSource {
  public:
    explicit WholeFunctionTypes(Catalogue& catalogue) : catalogue_(catalogue) {}
    entities::FunctionTypeProperties GetFunctionType(std::int16_t index) override {
        return catalogue_.wholeFunctionType(index);
    }

  private:
    Catalogue& catalogue_;
};

}  // namespace orvent::repository
