#include "shell/statement_checks.h"

#include <array>

#include "program/activity_program.h"
#include "program/needs.h"
#include "program/spellings.h"
#include "statements/ldl_scenario.h"
#include "statements/source_advice.h"

namespace orvent::shell {

namespace {

using analysis::ProblemKind;
using program::FindingKind;

/// The problem that each kind of finding is.
constexpr std::array<ProblemKind, program::kFindingKinds> kProblemOf = {
    ProblemKind::unreadable,      ProblemKind::spelling,     ProblemKind::outdated,   ProblemKind::pairing,
    ProblemKind::columns,         ProblemKind::undefined,    ProblemKind::unbound,    ProblemKind::unknownOperator,
    ProblemKind::unknownFunction, ProblemKind::constantType, ProblemKind::neverHolds, ProblemKind::recursion,
    ProblemKind::negatedCycle};

std::string placed(const program::Finding& finding) {
    if (finding.rule == 0 && finding.place.offset == 0) {
        return finding.words;
    }
    const std::string rule = finding.rule == 0 ? "Line " : "Rule " + std::to_string(finding.rule) + ", line ";
    return rule + std::to_string(finding.place.line) + ", column " + std::to_string(finding.place.column) + ": " +
           finding.words;
}

}  // namespace

std::optional<analysis::StatementCheck::Fault> StatementChecks::faultOf(
    const entities::ActivityProperties& activity) const {
    using Kind = statements::UnfinishedStatement::Kind;
    const statements::UnfinishedStatement found = statements::statementOf(activity);
    if (found.why.empty()) {
        return std::nullopt;
    }
    const ProblemKind kind = found.kind == Kind::doubtful   ? ProblemKind::doubtful
                             : found.kind == Kind::outdated ? ProblemKind::outdated
                                                            : ProblemKind::statement;
    return Fault{kind, found.why};
}

/// What is told of a whole statement already is told once: a statement that is not whole has no rules to look at, and
/// one that is outdated, or may be, fits in nothing.
analysis::StatementCheck::ProgramLook StatementChecks::programOf(const canvas::Canvas& form,
                                                                 const canvas::LabelsD& node) const {
    ProgramLook result;
    std::vector<program::Finding> findings = program::nameFindings(form, node);
    result.asked = program::twinsOf(node.KeyName());
    if (const entities::ActivityProperties* activity = node.activity(); activity && !faultOf(*activity)) {
        const program::Types types(form, tables_);
        program::ActivityProgram statement = program::activityProgram({form, tables_, types}, node);
        findings.insert(findings.end(), statement.findings.begin(), statement.findings.end());
        result.asked.insert(result.asked.end(), statement.asked.begin(), statement.asked.end());
        for (const canvas::NodeNumber read : statement.reads) {
            result.reads.push_back(form.Labels.byIndex(read)->KeyName());
        }
        for (const program::Need& need : program::needsOf(form, node, statement)) {
            result.needs.push_back({need.activity, need.whole});
        }
    }
    for (const program::Finding& finding : findings) {
        result.faults.push_back({kProblemOf[static_cast<std::size_t>(finding.kind)], placed(finding)});
    }
    return result;
}

std::string StatementChecks::deniedCircle(const std::string& way) const {
    return program::circleWords(way, true);
}

std::string StatementChecks::circleThrough(const canvas::Canvas& form,
                                           const entities::ActivityProperties& activity) const {
    const std::optional<statements::Advice> way = statements::circleThrough(form, activity);
    return way ? way->words : std::string();
}

}  // namespace orvent::shell
