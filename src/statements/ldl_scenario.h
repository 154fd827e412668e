#pragma once

#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "platform/dialogs.h"
#include "platform/program_folder.h"
#include "statements/activity_wizard.h"

namespace orvent::statements {

/// A node for which the program is not finished, and why.
struct UnfinishedStatement {
    enum class Kind {
        notWhole,  ///< an activity's statement is empty or holds an undeclared name
        doubtful,  ///< it is whole, but of a copy, whose new names it may not mean; only then it can be confirmed
        outdated,  ///< it is whole, but of an activity that was changed behind it
        circle,    ///< it is whole and fits; its data runs in a circle of activities
        notFed     ///< a record set to which an edge leads, and no link: the program has no rule for it
    };

    std::string node;
    std::string why;
    Kind kind = Kind::notWhole;

    bool operator==(const UnfinishedStatement&) const = default;
};

/// What is to be said of an activity's statement, whatever its data does; `why` is empty when it is whole and fits.
UnfinishedStatement statementOf(const entities::ActivityProperties& activity);

/// The activities whose statement is empty, holds a name that has not been declared, may not mean its
/// activity or does not fit it, those whose data runs in a circle, and the targets that nobody feeds, in the order of
/// their nodes.
std::vector<UnfinishedStatement> unfinishedStatements(const canvas::DrawForm& form);

/// The LDL program of a scenario as it stands: the statement of every activity, then the rules that tie them together.
/// An activity that has no statement contributes its empty one.
std::string ldlProgram(const canvas::DrawForm& form);

/// Shows which statements are not whole or do not fit and what is not fed, and leads to their nodes.
class StatementReport {
  public:
    virtual ~StatementReport() = default;
    virtual void showUnfinished(canvas::DrawForm& form, const std::vector<UnfinishedStatement>& statements) = 0;
};

/// Writes the LDL program of a scenario, and has the missing statements made before.
class LDLScenarioWriter {
  public:
    /// Without a `wizard` an activity that has no statement contributes its empty one.
    LDLScenarioWriter(platform::MessageBox& messages, const platform::ProgramFolder& folder,
                      platform::Progress& progress, ActivityWizard* wizard = nullptr, StatementReport* report = nullptr)
        : messages_(messages), folder_(folder), progress_(progress), wizard_(wizard), report_(report) {}

    /// Writes "\LDLS\<caption>.ldl" of the program's folder and tells so. A fault is told, and throws nothing; the
    /// text gathered so far stays with the scenario, and its next attempt goes on behind it. In the end the statements
    /// that are not whole are reported.
    void LDLScenario(canvas::DrawForm& form);

    /// Another window came forward, or none: what the status says of a scenario's statements is of the past.
    void cameForward(const canvas::DrawForm* form);

  private:
    void gatherStatements(canvas::DrawForm& form);
    void reportUnfinished(canvas::DrawForm& form);

    platform::MessageBox& messages_;
    const platform::ProgramFolder& folder_;
    platform::Progress& progress_;
    ActivityWizard* wizard_;
    StatementReport* report_;
    const canvas::DrawForm* reported_ = nullptr;  ///< of which the status tells; only compared
};

}  // namespace orvent::statements
