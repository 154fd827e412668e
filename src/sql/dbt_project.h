#pragma once

#include <string>
#include <vector>

#include "sql/dbt_text.h"
#include "sql/script.h"

namespace orvent::sql {

/// A scenario as a dbt project, whose models are written in the words of one dialect.
///
/// There is a model of each activity and of each record set that is fed; they read each other by `ref`, and the tables
/// of the other record sets by `source`. Models in `loads` bring the rows of a record set into its own table, in place
/// of what that holds or beside it. A model that reads a table which is loaded is a table itself, and the load waits
/// for it, so that it reads what was there before. Models bear the descriptions of their nodes, and tests of what the
/// rules promise. What cannot be a model is told in the project's file.
std::vector<ProjectFile> dbtProject(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
                                    const Dialect& dialect, const ScriptOptions& options);

}  // namespace orvent::sql
