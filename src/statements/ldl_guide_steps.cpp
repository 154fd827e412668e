// Where the walk through the variables is, and what comes next.

#include <string>

#include "statements/ldl_guide.h"

namespace orvent::statements {

std::string LDLGuide::roundText() const {
    const WizardRound* round = form_.round();
    return round ? "Activity " + std::to_string(round->place) + " of " + std::to_string(round->count) +
                       " without a statement"
                 : std::string();
}

std::string LDLGuide::whyDisabled(LDLButton button) const {
    if (form_.isEnabled(button)) {
        return {};
    }
    const bool walking = form_.CurrentVariable != nullptr;
    std::string undefined;
    switch (button) {
        case LDLButton::cmdParseLDL:
            return "The window is closed.";
        case LDLButton::cmdGenerateLDL:
            if (!walking) {
                return "Parse the template first.";
            }
            for (const LDLVariable& variable : form_.Variables) {
                if (!variable.Defined && variable.Index < form_.Variables.Count() &&
                    &variable != form_.CurrentVariable) {
                    undefined += (undefined.empty() ? "" : ", ") + referenceTo(variable);
                }
            }
            return undefined.empty() ? "Go on to the last variable first." : "Not defined yet: " + undefined + ".";
        case LDLButton::cmdCreateAct:
            return walking ? "Generate the statement first." : "Parse the template first.";
        case LDLButton::cmdNext:
            return walking ? "This is the last variable." : "Parse the template first.";
        case LDLButton::cmdPrev:
            return walking ? "This is the first variable." : "Parse the template first.";
        case LDLButton::cmdOK:
            return "Create the activity first.";
    }
    return {};
}

std::string LDLGuide::progressText() const {
    if (!form_.CurrentVariable) {
        return form_.Enabled.txtTemplate ? "The template has not been parsed yet." : "The template has no variables.";
    }
    std::string text = "Variable " + std::to_string(form_.CurrentVariable->Index) + " of " +
                       std::to_string(form_.Variables.Count()) + ": " + referenceTo(*form_.CurrentVariable);
    if (form_.CurrentVariable->SubVariables) {
        const int count = form_.CurrentVariable->SubVariables->Count();
        text += count == 0   ? ", an array without elements yet"
                : count == 1 ? ", an array of 1 element"
                             : ", an array of " + std::to_string(count) + " elements";
    }
    return text;
}

LDLButton LDLGuide::leadsOn() const {
    if (form_.Enabled.txtTemplate) {
        return LDLButton::cmdParseLDL;
    }
    if (form_.Enabled.cmdOK && form_.ActivityCreated) {
        return LDLButton::cmdOK;
    }
    if (form_.Enabled.cmdCreateAct && (form_.CurrentVariable || form_.txtTemplate != form_.OriginalTemplate)) {
        return LDLButton::cmdCreateAct;
    }
    if (form_.Enabled.cmdGenerateLDL) {
        return LDLButton::cmdGenerateLDL;
    }
    return form_.Enabled.cmdNext ? LDLButton::cmdNext : LDLButton::cmdPrev;
}

std::string LDLGuide::hint() const {
    if (form_.Enabled.txtTemplate) {
        return form_.txtTemplate.empty() ? "The activity's type has no template. Write one, then parse it."
                                         : "Parse the template to find its variables.";
    }
    if (!form_.trouble().empty()) {
        return "The activity was built in part only. " + form_.trouble();
    }
    const std::vector<Advice> found = faults();
    const bool created = form_.Enabled.cmdOK && form_.ActivityCreated;
    if (!found.empty()) {
        return (created ? "The activity is created, but its statement is not complete. "
                        : "The statement is not complete. ") +
               found.front().words;
    }
    if (created) {
        return "The activity is created. Keep its statement with OK.";
    }
    if (!form_.CurrentVariable) {
        return "Generate the statement, then create the activity.";
    }
    const std::string missing = form_.missingOnPanel();
    if (!missing.empty()) {
        return missing;
    }
    if (form_.Enabled.cmdCreateAct) {
        return "Check the statement, then create the activity.";
    }
    if (form_.Enabled.cmdGenerateLDL) {
        return "Generate the statement.";
    }
    return form_.Enabled.cmdNext ? "Complete. Go on to the next variable." : whyDisabled(LDLButton::cmdGenerateLDL);
}

}  // namespace orvent::statements
