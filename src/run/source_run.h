#pragma once

#include <string>

#include "run/run.h"
#include "run/source_connections.h"

namespace orvent::run {

/// Runs a scenario in the data source that holds all of its record sets: each question is one query, of which only
/// the rows that are shown come back. `step` counts the rows of one node after the other.
class SourceRun : public Run {
  public:
    explicit SourceRun(SourceConnections& sources) : Run(sources) {}

    std::string ask(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue) override;
    void open() override;
    /// Throws a `platform::Fault` where the record sets are not in one data source, or it cannot be opened.
    void begin(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
               const RunOptions& options) override;
    bool step() override;
    Page page(std::size_t predicate, std::size_t most) override;
    Selected select(std::size_t predicate, const std::string& condition, std::size_t most) override;

  private:
    std::string rowsOf(std::size_t predicate, const std::string& columns, const std::string& condition) const;
    long long count(std::size_t predicate, const std::string& condition);

    void askFor(const std::string& alias);

    std::string alias_;
    std::string asked_;  ///< the source that is to be opened
    bool open_ = false;  ///< that was done for the next `begin`
};

}  // namespace orvent::run
