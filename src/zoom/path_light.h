#pragma once

#include <cstdint>

#include "canvas/light.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

using canvas::Light;

/// The whole path of values through an attribute, a parameter or a constant: everything that flows into it or governs
/// it, and everything that it flows into or governs, along visible edges and through functions. Owners of lit members
/// are lit too. Empty for another node.
Light pathThrough(const ZoomView& view, canvas::NodeNumber node);

}  // namespace orvent::zoom
