#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "run/interruption.h"
#include "run/rows.h"
#include "run/source_connections.h"
#include "sql/compiler.h"

namespace orvent::run {

struct RunOptions {
    std::size_t sampleRows = 1000;  ///< of each record set that nobody feeds
    bool keepDuplicates = false;    ///< rows are bags, not sets
    bool anew = false;              ///< what was read from data sources is read once more
    sql::OwnFunctions functions{};  ///< as the designer says them
};

/// A scenario that is run to see its rows. Use: `begin`, then `step` until it gives false; between two steps one may
/// look at what is there, or stop for good: then the next `begin` goes on where it was. What it shows is of the
/// scenario as it was at `begin`, whatever has become of that; so all but `begin` and `ask` may be called in another
/// thread, which then is the only one. `begin` is where somebody is asked for logins, and where what the run needs is
/// opened; who does not want to wait for that calls `ask` and `open` before.
class Run {
  public:
    explicit Run(SourceConnections& sources) : sources_(sources) {}
    virtual ~Run() = default;

    /// Asks for the login at what is to be opened for the scenario and gives its name; empty when there is nothing.
    /// Throws a `platform::Fault`.
    virtual std::string ask(const canvas::DrawForm&, const entities::CatalogueTables&) { return {}; }
    /// Opens that. Throws a `platform::Fault`. Nothing breaks into it. The next `begin` asks nobody, and throws where
    /// the scenario needs another source by then.
    virtual void open() {}
    virtual void begin(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
                       const RunOptions& options) = 0;
    /// Runs the next statement, or reads the next rows. False when nothing is left to do. What a database refuses is
    /// the outcome of a predicate.
    virtual bool step() = 0;

    /// The first rows of a predicate. Throws a `platform::Fault`.
    virtual Page page(std::size_t predicate, std::size_t most) = 0;
    /// Of the rows of a predicate those that a condition holds for, and how many they are. Throws a `platform::Fault`.
    struct Selected {
        long long count = 0;
        Page first;
    };
    virtual Selected select(std::size_t predicate, const std::string& condition, std::size_t most) = 0;
    /// How many rows a record set that is fed held before, by hand or at its data source; nothing where nobody knows,
    /// or nobody has logged in there. Throws a `platform::Fault`.
    std::optional<long long> heldBefore(std::size_t predicate);

    /// From any thread: breaks into what a step, a page or a selection waits for. Nothing has come of that, and nothing
    /// else is done until `resume`; a step is as before it.
    void cancel() { interruption_.cancel(); }
    void resume() { interruption_.reset(); }
    bool isCancelled() const { return interruption_.isCancelled(); }

    /// The condition that such an expectation says must hold for no row.
    std::string conditionOf(std::size_t predicate, const entities::Expectation& expectation) const;

    std::size_t done() const { return done_; }
    std::size_t total() const { return compiled_.queries.size(); }
    const program::Program& program() const { return program_; }
    const std::map<canvas::NodeNumber, NodeRows>& nodes() const { return nodes_; }
    /// Of the predicates.
    const std::vector<Outcome>& outcomes() const { return outcomes_; }
    /// Names and columns of the predicate's table.
    const sql::Table& table(std::size_t predicate) const { return compiled_.tables[predicate]; }
    /// The name of the predicate's node.
    const std::string& nameOf(std::size_t predicate) const { return names_.at(program_.predicates[predicate].node); }
    /// Where and how many equal rows fell together before an aggregate, in a line; empty where none did, or nobody
    /// counted, as at a source.
    std::string fallenWords() const;
    /// What hinders a predicate, in a sentence; empty when nothing does.
    std::string whyNone(std::size_t predicate) const;

  protected:
    /// Takes over what was compiled; no predicate has rows yet.
    void plan(program::Program program, sql::Compiled compiled, const sql::Dialect& dialect,
              const canvas::DrawForm& form);
    const sql::Query& query(std::size_t at) const { return compiled_.queries[at]; }
    Outcome& outcome(std::size_t predicate) { return outcomes_[predicate]; }
    /// The node at which the rows end that this query reads, in words; empty when nothing is known to lack.
    std::string missingRead(const sql::Query& query) const;

    SourceConnections& sources_;
    program::Program program_;
    sql::Compiled compiled_;
    std::map<canvas::NodeNumber, NodeRows> nodes_;
    std::map<canvas::NodeNumber, std::string> names_;  ///< of these
    std::vector<Outcome> outcomes_;
    const sql::Dialect* dialect_ = nullptr;
    std::size_t done_ = 0;  ///< of the queries
    Interruption interruption_;
    program::StatementCache statements_;

  private:
    /// Where the rows lie that a record set held before it is fed.
    struct Target {
        std::optional<long long> count{};  ///< of those by hand, or as it was counted
        std::string alias{};
        std::map<std::string_view, std::string> queries{};  ///< by dialect
    };
    void findTargets(const canvas::DrawForm& form);

    std::map<std::size_t, Target> targets_;  ///< by predicate
};

}  // namespace orvent::run
