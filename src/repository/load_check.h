#pragma once

#include <string>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "repository/stored_rows.h"

namespace orvent::repository {

/// Tells in what a scenario that was just loaded is not whole, as far as names that lead nowhere and rows that did not
/// come back tell; a save that was broken off leaves such a mixture. Empty when nothing is wrong.
std::string damageOf(canvas::DrawForm& form, const entities::CatalogueTables& tables, const StoredRows& rows);

}  // namespace orvent::repository
