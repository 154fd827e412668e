#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "odbc/database.h"
#include "sql/compiler.h"
#include "testkit/servers.h"
#include "walk_scenario.h"

namespace orvent::sql {

/// Rows in one spelling, whatever gave them.
using Rows = std::multiset<std::string>;

/// One field of a row: numbers lose zeros behind the point, NULL differs from the empty text.
std::string spelt(bool null, bool number, const std::string& text);

/// A collation of a dialect by which texts are equal, or in order, in another way than by their code points.
std::string otherCollation(std::string_view dialect);

/// Given record sets as tables of the test's own, named by the place of their predicate.
struct FactTables : HeldRows {
    explicit FactTables(const Dialect& chosen) : dialect(chosen) {}
    static std::string name(std::size_t place) { return "facts_" + std::to_string(place); }
    Held heldBy(const program::Predicate& predicate, std::size_t place) const override;

    const Dialect& dialect;
};

/// A database that queries are sent to in its own words.
class Engine {
  public:
    explicit Engine(const char* dialect);

    const Dialect& dialect() const { return dialect_; }
    void run(const std::string& statement) { connection_->prepareAsIs(statement)->execute(); }
    void fill(std::size_t place, const std::vector<FactRow>& rows, const std::vector<bool>& numbers);
    void drop(std::size_t place) { run("DROP TABLE " + dialect_.quoted(FactTables::name(place))); }
    Rows rows(const std::string& query, const std::vector<Family>& families);

  private:
    const Dialect& dialect_;
    std::unique_ptr<odbc::OdbcDatabase> database_;
    std::unique_ptr<platform::Connection> connection_;
};

/// Those that a scenario is run on; servers start when first asked for.
std::vector<Engine>& engines();

}  // namespace orvent::sql
