#pragma once

#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// Writes the view's entities back into the scenario and renews the mirrors of their links there. The members keep the
/// scenario's order, new ones at the end. The view is collapsed for it; with `ReExpand` what was expanded is expanded
/// again, at the places where it stood.
void ApplyZoomChanges(ZoomView& view, bool ReExpand);

/// Copies the repository identifiers of the scenario's entities to those of the view that bear the same keys. To be run
/// after every save of the design window, also after one that broke off.
void RefreshZoomIdentities(ZoomView& view);

}  // namespace orvent::zoom
