#pragma once

#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// Builds the view around an activity of the design window: the activity in the middle, one node for each provider
/// edge that ends at it on the left and for each that starts at it on the right, all of them expanded. The view is
/// empty before.
void buildZoomView(ZoomView& view, const canvas::LabelsD& activity);

}  // namespace orvent::zoom
