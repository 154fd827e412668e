#pragma once

#include "analysis/statement_check.h"
#include "entities/name_tables.h"

namespace orvent::shell {

/// Lets the list of problems ask what the list behind "Create LDL" and the checked program tell.
class StatementChecks : public analysis::StatementCheck {
  public:
    explicit StatementChecks(const entities::CatalogueTables& tables) : tables_(tables) {}

    std::optional<Fault> faultOf(const entities::ActivityProperties& activity) const override;
    ProgramLook programOf(const canvas::Canvas& form, const canvas::LabelsD& node) const override;
    std::string deniedCircle(const std::string& way) const override;
    std::string circleThrough(const canvas::Canvas& form, const entities::ActivityProperties& activity) const override;

  private:
    const entities::CatalogueTables& tables_;
};

}  // namespace orvent::shell
