#pragma once

#include <functional>
#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "sql/dialect.h"
#include "sql/own_functions.h"

namespace orvent::sql {

struct ScriptOptions {
    bool keepDuplicates = false;
    OwnFunctions functions{};  ///< as the designer says them
    /// Whether the rows of that activity take the place of what their target holds; without it none do.
    std::function<bool(const entities::ActivityProperties&)> overwrites{};
};

/// Whether the rows that come into a record set take the place of what it holds.
bool isOverwritten(const canvas::Canvas& form, const entities::RecordSetProperties& recordSet,
                   const ScriptOptions& options);

/// A part of a script: a line that tells what it is about, a statement without the sign that ends it, or both.
struct ScriptPart {
    std::string comment;
    std::string statement;
};

/// A scenario as a script for one kind of database. First a view of each predicate in the order of the flow, then the
/// rows for all targets are put aside, and only then each target is loaded: a target that is read on the way is read as
/// it was. What comes in takes the place of what is there, or what is not there yet is added. What cannot be written is
/// told in a comment. It may be run again.
std::vector<ScriptPart> scriptParts(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
                                    const Dialect& dialect, const ScriptOptions& options);
std::string scriptText(const std::vector<ScriptPart>& parts);

}  // namespace orvent::sql
