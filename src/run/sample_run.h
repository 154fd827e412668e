#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "run/origins.h"
#include "run/run.h"
#include "run/sample_database.h"
#include "run/source_connections.h"

namespace orvent::run {

/// Runs a scenario on the first rows of what it is given - by hand, or in data sources of any kind - in a database in
/// memory: a table for each predicate in the order of the flow. What has not changed since the last time, and reads
/// nothing that has, is kept.
class SampleRun : public Run {
  public:
    SampleRun(platform::Database& database, SourceConnections& sources) : Run(sources), database_(database) {}

    void begin(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
               const RunOptions& options) override;
    bool step() override;
    Page page(std::size_t predicate, std::size_t most) override;
    Selected select(std::size_t predicate, const std::string& condition, std::size_t most) override;

    /// Whether rows come from a data source, not all by hand.
    bool readsSources() const;
    /// How many tables were made of queries or filled since this was made.
    std::size_t made() const { return numbers_; }

  private:
    /// A table that is there.
    struct Made {
        std::size_t number = 0;            ///< another one for each table that is ever made
        std::string select{};              ///< the query that it was made by
        std::vector<std::size_t> reads{};  ///< the numbers of the tables that the query read
        Origin origin{};                   ///< where its rows came from, when no query made it
        long long rows = 0;
        std::string words{};
        long long fallen = 0;  ///< as of an outcome
    };
    /// Rows on their way from a data source.
    struct Reading {
        std::string query;
        std::shared_ptr<platform::Connection> connection;
        std::unique_ptr<platform::Statement> rows;
        std::unique_ptr<SampleDatabase::Filling> filling;
        std::size_t left = 0;
    };

    bool isHeld(const Origin& origin) const;
    bool work(const sql::Query& query);
    bool isPresent(const sql::Query& query);
    std::string whyNot(const sql::Query& query) const;
    std::vector<std::size_t> numbersRead(const sql::Query& query) const;
    void fillByHand(const Origin& origin, const std::vector<program::Family>& families);
    void startReading(const Origin& origin, const std::vector<program::Family>& families);
    void readOn(const Origin& origin);
    void endFilling(SampleDatabase::Filling& filling, const Origin& origin);
    void makeTable(const sql::Query& query);
    void drop(const std::string& table);
    void dropOthers();

    platform::Database& database_;
    std::unique_ptr<SampleDatabase> sample_;
    std::map<std::size_t, Origin> origins_;  ///< by predicate
    std::map<std::string, Made> tables_;     ///< by name
    std::unique_ptr<Reading> reading_;
    std::string statement_;  ///< that runs
    std::size_t numbers_ = 0;
};

}  // namespace orvent::run
