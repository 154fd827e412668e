#pragma once

#include <string>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "repository/stored_rows.h"

namespace orvent::repository {

/// What is wrong with a scenario that was just loaded.
struct LoadFindings {
    std::string words{};   ///< empty when nothing is to be told
    bool differs = false;  ///< the window does not show all that is stored
};

/// Looks in what the scenario is not whole, as far as names that lead nowhere and rows that did not come back tell; a
/// save that was broken off leaves such a mixture.
LoadFindings damageOf(canvas::DrawForm& form, const entities::CatalogueTables& tables, const StoredRows& rows);

}  // namespace orvent::repository
