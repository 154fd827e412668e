#pragma once

#include <cstdint>
#include <string>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "platform/dialogs.h"
#include "platform/fault.h"
#include "statements/ldl_sources.h"
#include "statements/ldl_variables.h"

namespace orvent::statements {

/// Whether the output was made by the wizard or by the activity's type, and not drawn by hand.
bool isGenerated(const entities::AttributeProperties& output);

/// The outputs of the activity that were not generated, the very objects.
entities::Act_OutputsCollection outputsByHand(entities::ActivityProperties& activity);

/// A choice that the designer left open, or a thing that is gone. It ends the building without a message.
class BuildFault : public platform::Fault {
  public:
    using platform::Fault::Fault;
};

/// Builds an activity's function, parameters and generated outputs anew from the variables of its template, with the
/// regulator links that the definitions imply. What was there goes, and its rows are noted in `DeletedNodes`.
class ActivityBuilder {
  public:
    /// `InDialog` is the activity when it is the working copy of its dialog, else null.
    ActivityBuilder(canvas::DrawForm& form, entities::ActivityProperties& activity,
                    entities::ActivityProperties* InDialog, const LDLVariableCollection& variables,
                    const LDLsourceColl& sources, const entities::CatalogueTables& catalogue,
                    platform::MessageBox& messages)
        : form_(form),
          activity_(activity),
          InDialog_(InDialog),
          variables_(variables),
          sources_(sources),
          catalogue_(catalogue),
          messages_(messages) {}

    /// A fault leaves the activity as far as it got: a `BuildFault`, or a plain one that is to be told, as for two
    /// things of one key.
    void CreateActivityFromVariables();

    void CreateParameterFromVariable(const LDLVariable& variable, const std::string& name);
    /// The input bears the variable's own name, whatever `name` says, so those of an array are called "1", "2", ...
    void CreateFunctionParameterFromVariable(const LDLVariable& variable, const std::string& name);
    void CreateOutputFromVariable(const LDLVariable& variable, const std::string& name);

  private:
    struct LinkCodes;

    void removeFunctions();
    void removeGeneratedOutputs();
    void removeParameters();
    void removeOutput(entities::AttributeProperties& output);
    void createFunctions();
    void createParameters(const LDLVariable& variable);
    void createFunctionOutput(const LDLVariable& variable);
    entities::FunctionProperties* function();
    bool hasFunction(const char* message);
    void regulate(entities::ParameterProperties& parameter, const LDLVariable& variable, const LinkCodes& codes);
    void regulate(entities::AttributeProperties& output, const LDLVariable& variable, const LDLVariable& regulator);
    const entities::AttributeProperties& inputOf(const LDLVariable& variable) const;
    const entities::AttributeProperties& fieldOf(const LDLVariable& variable) const;

    canvas::DrawForm& form_;
    entities::ActivityProperties& activity_;
    entities::ActivityProperties* InDialog_;
    const LDLVariableCollection& variables_;
    const LDLsourceColl& sources_;
    const entities::CatalogueTables& catalogue_;
    platform::MessageBox& messages_;
};

}  // namespace orvent::statements
