#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "entities/name_tables.h"
#include "entities/type_records.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

/// The rows of types over one open connection: reads them into records and writes them. It tells nothing and leaves the
/// name tables alone.
class TypeRows {
  public:
    TypeRows(StatementCache& repository, const entities::CatalogueTables& tables)
        : repository_(repository), tables_(tables) {}

    /// The index of a data type by its name; it may lead to a question and to writing.
    using DataTypeIndex = std::function<std::int16_t(const std::string& name)>;

    // Fill a record that bears its name. False when the repository has no such type.
    bool read(entities::ActivityTypeProperties& type, const DataTypeIndex& indexOf);
    bool read(entities::FunctionTypeProperties& type, const DataTypeIndex& indexOf);

    void add(const entities::FunctionTypeProperties& type);
    void add(const entities::ActivityTypeProperties& type);

    // Writes the type whose name was `oldName` anew.
    void change(const std::string& oldName, const entities::FunctionTypeProperties& type);
    void change(const std::string& oldName, const entities::ActivityTypeProperties& type);

  private:
    template <class Add>
    void eachParam(std::string_view sql, const std::string& type, std::string_view kind, const DataTypeIndex& indexOf,
                   Add add);
    void addMembers(const entities::FunctionTypeProperties& type);
    void addMembers(const entities::ActivityTypeProperties& type);

    StatementCache& repository_;
    const entities::CatalogueTables& tables_;
};

}  // namespace orvent::repository
