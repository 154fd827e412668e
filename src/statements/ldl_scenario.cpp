#include "statements/ldl_scenario.h"

#include "platform/fault.h"
#include "platform/steps.h"
#include "platform/text.h"
#include "statements/scenario_link_rules.h"
#include "statements/source_advice.h"
#include "statements/statement_fit.h"
#include "statements/template_advice.h"

namespace orvent::statements {

namespace {

using Kind = UnfinishedStatement::Kind;

constexpr const char* kCrLf = "\r\n";

/// The wizard takes its template from the activity's type; without one there is nothing to ask.
bool isToBeAsked(const canvas::LabelsD& node) {
    const entities::ActivityProperties* activity = node.activity();
    return activity && activity->Act_LDL.empty() && activity->Act_Type != -1;
}

/// A record set that was joined as a target and gets nothing.
bool isUnfedTarget(const canvas::DrawForm& form, const canvas::LabelsD& node) {
    const entities::RecordSetProperties* recordSet = node.recordSet();
    if (!recordSet) {
        return false;
    }
    for (const entities::AttributeProperties& attribute : recordSet->RecordSet_Outputs) {
        if (attribute.ProvidedFrom.count() > 0) {
            return false;
        }
    }
    for (const canvas::EdgeNumber number : node.EndingLines()) {
        const canvas::LinesD* edge = form.Lines.byIndex(number);
        if (edge && edge->EdgeType() == canvas::EdgeTypeProvider && edge->FromLabel() != node.Index()) {
            return true;
        }
    }
    return false;
}

void addStatement(std::string& program, const entities::ActivityProperties& activity) {
    program.append(activity.Act_LDL).append(kCrLf).append(kCrLf);
}

}  // namespace

UnfinishedStatement statementOf(const entities::ActivityProperties& activity) {
    if (const std::vector<Advice> faults = faultsOf(activity.Act_LDL); !faults.empty()) {
        return {activity.Act_Name, faults.front().words, Kind::notWhole};
    }
    if (!activity.statementDoubt.empty()) {
        return {activity.Act_Name, activity.statementDoubt, Kind::doubtful};
    }
    return {activity.Act_Name, misfitLine(activity), Kind::outdated};
}

std::string ldlProgram(const canvas::DrawForm& form) {
    std::string program;
    for (const canvas::LabelsD& node : form.Labels) {
        if (const entities::ActivityProperties* activity = node.activity()) {
            addStatement(program, *activity);
        }
    }
    return program + ScenarioLinkRules(form) + kCrLf;
}

std::vector<UnfinishedStatement> unfinishedStatements(const canvas::DrawForm& form) {
    std::vector<UnfinishedStatement> result;
    const std::unordered_set<std::string> circles = activitiesInCircles(form);
    for (const canvas::LabelsD& node : form.Labels) {
        if (const entities::ActivityProperties* activity = node.activity()) {
            if (const UnfinishedStatement statement = statementOf(*activity); !statement.why.empty()) {
                result.push_back(statement);
            } else if (circles.contains(activity->Act_Name)) {
                if (const std::optional<Advice> circle = circleThrough(form, *activity)) {
                    result.push_back({activity->Act_Name, circle->words, Kind::circle});
                }
            }
        } else if (isUnfedTarget(form, node)) {
            result.push_back({node.Caption(), "An edge leads to it, but nobody feeds its columns.", Kind::notFed});
        }
    }
    return result;
}

void LDLScenarioWriter::gatherStatements(canvas::DrawForm& form) {
    platform::Steps steps(progress_, static_cast<std::size_t>(form.Labels.Count()));
    WizardRound round;
    for (const canvas::LabelsD& node : form.Labels) {
        round.count += isToBeAsked(node);
    }
    // By position: the wizard works on the canvas in the middle of this walk.
    for (int position = 1; position <= form.Labels.Count(); ++position) {
        steps.next();
        canvas::LabelsD& node = *form.Labels.at(position);
        entities::ActivityProperties* activity = node.activity();
        if (!activity) {
            continue;
        }
        if (wizard_ && isToBeAsked(node)) {
            ++round.place;
            if (!round.left) {
                wizard_->LDLCreate(form, *activity, nullptr, &round);
            }
        }
        addStatement(form.txtLDL, *activity);
    }
}

void LDLScenarioWriter::reportUnfinished(canvas::DrawForm& form) {
    const std::vector<UnfinishedStatement> statements = unfinishedStatements(form);
    if (statements.empty()) {
        reported_ = nullptr;
        progress_.status("Ready");
        return;
    }
    std::string words;
    for (const auto& [kind, head] :
         {std::pair(Kind::notWhole, "Without a whole statement: "),
          std::pair(Kind::doubtful, "With a statement that may mean others: "),
          std::pair(Kind::outdated, "With an outdated statement: "), std::pair(Kind::circle, "In a circle of data: "),
          std::pair(Kind::notFed, "Fed by nobody: ")}) {
        std::string names;
        for (const UnfinishedStatement& statement : statements) {
            if (statement.kind == kind) {
                names += (names.empty() ? head : ", ") + statement.node;
            }
        }
        words += (words.empty() || names.empty() ? "" : ". ") + names;
    }
    progress_.status(words);
    reported_ = &form;
    if (report_) {
        report_->showUnfinished(form, statements);
    }
}

void LDLScenarioWriter::cameForward(const canvas::DrawForm* form) {
    if (reported_ && form != reported_) {
        reported_ = nullptr;
        progress_.status("Ready");
    }
}

void LDLScenarioWriter::LDLScenario(canvas::DrawForm& form) {
    try {
        gatherStatements(form);
        form.txtLDL += ScenarioLinkRules(form);
        platform::writeFile(folder_.file("\\LDLS\\", form.Caption(), ".ldl"), form.txtLDL + kCrLf);
        form.txtLDL.clear();
    } catch (const platform::Fault& fault) {
        messages_.tell(std::string("Could Not Write To The File!") + kCrLf + fault.description(), {},
                       platform::Icon::critical);
        return;
    }
    messages_.tell("File \"" + folder_.path("\\LDLS\\") + form.Caption() + ".ldl\" Was Created.");
    reportUnfinished(form);
}

}  // namespace orvent::statements
