#pragma once

#include <string>
#include <vector>

#include "entities/nodes.h"
#include "statements/ldl_sources.h"
#include "statements/ldl_variables.h"

namespace orvent::statements {

/// Something that the designer should know, in words, and the variable that it is about; empty when it is about none.
struct Advice {
    std::string words;
    std::string variable;

    bool operator==(const Advice&) const = default;
};

/// An activity and the template that it is to be made by.
struct TemplateSubject {
    const std::string& text;
    const LDLVariableCollection& Variables;
    const LDLsourceColl& Sources;
    const entities::Act_OutputsCollection& OutputsView;
    const entities::ActivityProperties& Activity;
    bool WholeNumbers = false;
};

/// What does not fit between the template and the activity, before anything is generated.
std::vector<Advice> adviceOn(const TemplateSubject& subject);

/// Whether tokens of ten and more would be cut, so that whole numbers are worth offering.
bool cutsNumbers(const TemplateSubject& subject);

/// How many links go when the activity's generated outputs are replaced, because other entities read them.
int linksOfGeneratedOutputs(const entities::ActivityProperties& activity);

/// Why a statement is not whole: it is empty, holds a name that has not been declared, or ends with a fault of the
/// generator. Nothing for a whole one.
std::vector<Advice> faultsOf(const std::string& statement);

}  // namespace orvent::statements
