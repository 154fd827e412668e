#pragma once

#include <map>
#include <string>

#include "program/activity_program.h"

namespace orvent::program {

/// Keeps what the statements of a scenario were read as, each as long as all that its reading depends on is the same.
/// That is compared whole each time, so it does not matter who changes the scenario, and how.
class StatementCache {
  public:
    /// Before the statements of a program are read.
    void begin(const entities::CatalogueTables& catalogue);
    /// What `activityProgram` gives.
    ActivityProgram read(const ProgramSources& sources, const canvas::LabelsD& node);

    std::size_t kept() const { return kept_; }  ///< how often nothing had to be read

  private:
    struct Known {
        std::string dependencies;
        ActivityProgram program;
    };

    std::map<canvas::NodeNumber, Known> known_;
    std::string types_;  ///< the names of all that there are
    std::size_t kept_ = 0;
};

}  // namespace orvent::program
