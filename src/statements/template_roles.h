#pragma once

#include <map>
#include <string>

#include "entities/type_records.h"
#include "statements/ldl_variables.h"

namespace orvent::statements {

/// What a variable of a template plainly stands for, and why, as a sentence.
struct TemplateRole {
    LDLVariableType kind = VarUndefined;
    std::string why;
};

/// The roles that the template itself, or the record of its type, makes plain, by variable. What is open is not there.
std::map<std::string, TemplateRole> rolesIn(const std::string& text, const LDLVariableCollection& variables,
                                            const entities::ActivityTypeProperties& type);

/// The sentences of a description that hold the name as a whole word, joined by blanks; empty when there is none.
std::string sentencesAbout(const std::string& description, const std::string& name);

}  // namespace orvent::statements
