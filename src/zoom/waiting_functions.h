#pragma once

#include "zoom/zoom_view.h"

namespace orvent::zoom {

// A function that was drawn by itself keeps its node while its activity is collapsed. The node waits free, with a
// record of its own that is edited and linked meanwhile; the activity's list holds a clone.

/// The activity for which a function's node waits, or nothing.
canvas::LabelsD* awaitedActivity(ZoomView& view, const canvas::LabelsD& function);
const canvas::LabelsD* awaitedActivity(const ZoomView& view, const canvas::LabelsD& function);

/// A function's node, which is collapsed and has a record of its own, waits for the activity from now on.
void letWait(ZoomView& view, canvas::LabelsD& function, const canvas::LabelsD& owner);

/// The activity's list takes over what has become of a function that waits for it.
void bringUp(ZoomView& view, canvas::LabelsD& function);
/// The same for all that wait.
void bringUpAll(ZoomView& view);

}  // namespace orvent::zoom
