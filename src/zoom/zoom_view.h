#pragma once

#include "zoom/zoom_form.h"

namespace orvent::zoom {

/// Builds the view around an activity of the design window: the activity in the middle, one node for each provider
/// edge that ends at it on the left and for each that starts at it on the right, all of them expanded. The view is
/// empty before.
void buildZoomView(ZoomForm& form, const canvas::LabelsD& activity);

/// Writes the view's entities back into the scenario and renews the mirrors of their links there. The members keep the
/// scenario's order, new ones at the end. The view is folded for it; with `ReExpand` what was unfolded is unfolded
/// again, at the places where it stood.
void ApplyZoomChanges(ZoomForm& form, bool ReExpand);

/// Copies the repository identifiers of the scenario's entities to those of the view that bear the same keys. To be run
/// after every save of the design window, also after one that broke off.
void RefreshZoomIdentities(ZoomForm& form);

}  // namespace orvent::zoom
