#pragma once

#include <string>

#include "canvas/draw_form.h"

namespace orvent::editors {

/// Why no activity can stand on an edge, between its source and its target; empty when one can.
std::string whyNotBetween(const canvas::DrawForm& form, const canvas::LinesD& edge);

/// An activity without links comes between the ends of such an edge: it reads what the target reads of the source, and
/// passes it on. The target keeps its members, and the activity takes the source's place in the order of its sources.
/// What the source governs in the target it goes on to govern.
void insertBetween(canvas::DrawForm& form, canvas::LinesD& edge, canvas::LabelsD& activity, bool shortNames);

}  // namespace orvent::editors
