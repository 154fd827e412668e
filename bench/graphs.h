#pragma once

#include "canvas/draw_form.h"

namespace orvent::bench {

/// Fills an empty design window with `nodes` nodes (a multiple of 10), half of them record sets and half activities.
///
/// The scenario consists of flows of 50 nodes, as separate loads of one warehouse are. A flow is made of five groups of
/// ten nodes, each of them fed by the one before: two sources are joined and staged, checked, split to two targets and
/// united again. Every record set has 4 attributes, every activity 4 inputs and 4 outputs; each is linked, and each
/// pair of linked nodes has an edge. Links stand where a loaded scenario has them before it is synchronised: at the
/// attributes of record sets and at the outputs of activities.
void buildScenario(canvas::DrawForm& form, int nodes);

/// Writes the other ends of all links, as loading does.
void synchronizeScenario(canvas::DrawForm& form);

}  // namespace orvent::bench
