#pragma once

#include "canvas/draw_form.h"
#include "repository/catalogue.h"
#include "repository/services.h"

namespace orvent::repository {

/// Whether the catalogue's tables, as they were just read, have all types that a save of the scenario would write. What
/// is gone is told with where it is needed, and offered to be added again, as far as the scenario and the tables know
/// it; true, too, when that was done. Throws what fails.
bool hasItsTypes(const canvas::DrawForm& form, Services& services, Catalogue& catalogue, StatementCache& repository);

}  // namespace orvent::repository
