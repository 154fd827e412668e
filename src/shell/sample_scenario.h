#pragma once

#include "canvas/draw_form.h"
#include "repository/catalogue.h"

namespace orvent::shell {

/// Builds the sample scenario in an empty design window. Members that activity types bring are taken from the loaded
/// catalogue by position, so any catalogue with three activity types serves. False when the catalogue has fewer: the
/// nodes then stand, without entities filled.
bool buildSampleScenario(canvas::DrawForm& form, repository::Catalogue& catalogue);

}  // namespace orvent::shell
