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

constexpr const char* kCrLf = "\r\n";

/// The wizard takes its template from the activity's type; without one there is nothing to ask.
bool isToBeAsked(const canvas::LabelsD& node) {
    const entities::ActivityProperties* activity = node.activity();
    return activity && activity->Act_LDL.empty() && activity->Act_Type != -1;
}

}  // namespace

std::vector<UnfinishedStatement> unfinishedStatements(const canvas::DrawForm& form) {
    std::vector<UnfinishedStatement> result;
    const std::unordered_set<std::string> circles = activitiesInCircles(form);
    for (const canvas::LabelsD& node : form.Labels) {
        if (const entities::ActivityProperties* activity = node.activity()) {
            const std::vector<Advice> faults = faultsOf(activity->Act_LDL);
            const std::string why = faults.empty() ? misfitLine(*activity) : faults.front().words;
            if (!why.empty()) {
                result.push_back({activity->Act_Name, why, faults.empty()});
            } else if (circles.contains(activity->Act_Name)) {
                if (const std::optional<Advice> circle = circleThrough(form, *activity)) {
                    result.push_back({activity->Act_Name, circle->words, false, true});
                }
            }
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
        form.txtLDL.append(activity->Act_LDL).append(kCrLf).append(kCrLf);
    }
}

void LDLScenarioWriter::reportUnfinished(canvas::DrawForm& form) {
    const std::vector<UnfinishedStatement> statements = unfinishedStatements(form);
    if (statements.empty()) {
        reported_ = nullptr;
        progress_.status("Ready");
        return;
    }
    std::string names, outdated, circling;
    for (const UnfinishedStatement& statement : statements) {
        std::string& those = statement.circle ? circling : statement.outdated ? outdated : names;
        those += (those.empty() ? "" : ", ") + statement.activity;
    }
    std::string words;
    for (const auto& [head, those] :
         {std::pair("Without a whole statement: ", &names), std::pair("With an outdated statement: ", &outdated),
          std::pair("In a circle of data: ", &circling)}) {
        if (!those->empty()) {
            words += (words.empty() ? "" : ". ") + std::string(head) + *those;
        }
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
