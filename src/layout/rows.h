#pragma once

#include "layout/layered.h"

namespace orvent::layout {

/// Rows between which few arcs cross.
Rows rowsOf(const Layered& graph);

}  // namespace orvent::layout
