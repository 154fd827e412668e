#pragma once

#include "analysis/statement_check.h"
#include "statements/ldl_scenario.h"
#include "statements/source_advice.h"

namespace orvent::shell {

/// Lets the list of problems ask what the list behind "Create LDL" tells.
class StatementChecks : public analysis::StatementCheck {
  public:
    std::optional<Fault> faultOf(const entities::ActivityProperties& activity) const override {
        using Kind = statements::UnfinishedStatement::Kind;
        const statements::UnfinishedStatement found = statements::statementOf(activity);
        if (found.why.empty()) {
            return std::nullopt;
        }
        const analysis::ProblemKind kind = found.kind == Kind::doubtful   ? analysis::ProblemKind::doubtful
                                           : found.kind == Kind::outdated ? analysis::ProblemKind::outdated
                                                                          : analysis::ProblemKind::statement;
        return Fault{kind, found.why};
    }
    std::string circleThrough(const canvas::Canvas& form, const entities::ActivityProperties& activity) const override {
        const std::optional<statements::Advice> way = statements::circleThrough(form, activity);
        return way ? way->words : std::string();
    }
};

}  // namespace orvent::shell
