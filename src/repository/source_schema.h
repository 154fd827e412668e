#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/database.h"
#include "repository/frm_db_login.h"

namespace orvent::repository {

struct SourceColumn {
    std::string name;
    std::string dataType;  ///< as the database's catalogue calls it, in the Oracle dialect's words
};

struct SourceTable {
    std::string name;
    std::vector<SourceColumn> columns{};
    bool isWhole = false;  ///< all its columns were read
};

/// Reads the tables of a source database and their columns, a table a step, so that one can show how far it is and
/// stop between two steps. The connection lasts as long as the reader.
///
/// Use: construct, `readTables`, then `next` until it gives null. Each of the three throws `platform::Fault` with the
/// driver's words; what was read before it stays, and `shortfall` says how much it is.
class SchemaReader {
  public:
    /// Opens the source with its name, user and password.
    SchemaReader(platform::Database& database, const SourceDatabase& source);
    ~SchemaReader();
    SchemaReader(const SchemaReader&) = delete;
    SchemaReader& operator=(const SchemaReader&) = delete;

    /// Reads the names of the tables that the user owns, in the database's order.
    void readTables();

    /// The next table with its columns; null behind the last one. The table lives as long as the reader.
    const SourceTable* next();

    /// How many tables there are, and how many `next` has begun.
    std::size_t total() const { return names_.size(); }
    std::size_t begun() const { return tables_.size(); }

    /// The tables that `next` has given, and the one in which it failed with the columns that came before the fault.
    const std::vector<std::unique_ptr<SourceTable>>& tables() const { return tables_; }

    /// True when every table was read with all its columns.
    bool isWhole() const;

    /// Words for the user when there is less than all, such as "Only 3 of 40 tables of SHOP were loaded.", or when
    /// there is no table; else empty.
    std::string shortfall() const;

  private:
    SourceDatabase source_;
    std::string owner_;
    std::unique_ptr<platform::Connection> connection_;
    std::unique_ptr<platform::Statement> columns_;  // goes before its connection
    std::vector<std::string> names_;
    bool listed_ = false;
    std::vector<std::unique_ptr<SourceTable>> tables_;
};

}  // namespace orvent::repository
