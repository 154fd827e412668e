#pragma once

#include <cstdint>
#include <unordered_set>

#include "canvas/draw_form.h"

namespace orvent::repository {

/// Makes every record of the window new to the next save: all identifiers become 0, the inputs are marked for writing,
/// and `DeletedNodes` is emptied, since its entries name rows of what the window showed before. A full write begins
/// with this, so that whatever it does not reach is still told from what it has written.
void forgetStoredRows(canvas::DrawForm& form);

/// Makes all records of one node new.
void forgetStoredRows(canvas::LabelsD& node);

/// The identifiers of all nodes of the window that have a row.
std::unordered_set<std::int16_t> storedNodes(const canvas::DrawForm& form);

}  // namespace orvent::repository
