#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/database.h"
#include "program/types.h"
#include "run/rows.h"
#include "sql/compiler.h"

namespace orvent::run {

/// The database in memory in which a sample runs. Each step throws a `platform::DatabaseError`.
///
/// It knows texts, whole numbers of 64 bits and others of 15 digits. A date is the text "2026-11-30", or "2026-11-30
/// 18:05:00" with a time that is not midnight; what is none of these, such as bytes, is the text that the driver makes
/// of it.
class SampleDatabase {
  public:
    explicit SampleDatabase(platform::Database& database);

    const sql::Dialect& dialect() const { return dialect_; }
    platform::Connection& connection() { return *connection_; }

    /// Makes a table of the rows of a query, and gives their number.
    long long make(const std::string& table, const std::string& select);
    void drop(const std::string& table);
    long long count(const std::string& table, const std::string& where = {});
    /// What a query gives whose only row is a whole number.
    long long number(const std::string& query);
    /// The first rows that a condition holds for, or any; values are texts.
    Page page(const sql::Table& table, std::size_t most, const std::string& where = {});

    /// A table that is being filled. It is there when `end` was called, and not at all before.
    class Filling {
      public:
        /// Columns are "c1" and so on. Those of an unknown family hold numbers where the first rows do. The empty text
        /// is NULL in a column of numbers or dates.
        Filling(SampleDatabase& database, const std::string& table, const std::vector<program::Family>& families,
                const std::vector<FieldRow>& first);
        ~Filling();
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;

        void add(const FieldRow& row);
        /// The present row of a statement, whose columns are in the same order.
        void add(platform::Statement& row);
        void end();
        /// What has become of values, where that is to be told; else empty.
        std::string remark() const;

      private:
        void bind(std::size_t column, std::string& text);

        SampleDatabase& database_;
        std::vector<program::Family> families_;
        std::unique_ptr<platform::Statement> insert_;
        std::string text_;
        bool open_ = true;
        long long rounded_ = 0;  ///< numbers that had more digits than are kept
        long long odd_ = 0;      ///< texts in columns of numbers
    };

  private:
    void run(const std::string& statement) { connection_->prepareAsIs(statement)->execute(); }

    const sql::Dialect& dialect_;
    std::unique_ptr<platform::Connection> connection_;
};

}  // namespace orvent::run
