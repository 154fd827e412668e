#pragma once

#include <string>

#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// What feeds or governs a member from outside its activity or record set and is not shown in the view, as
/// "provided by RS2.A, not in view" or "provided by RS2.A, collapsed in RS2"; empty while all of it is shown. Such a
/// member takes no other provider, whatever the picture lets one think.
std::string wordsOfBeyond(const ZoomView& view, const canvas::LabelsD& node);

/// The node that bears the name of one that only repeats it; nothing for a node that bears its own.
const canvas::LabelsD* firstCopyOf(const ZoomView& view, const canvas::LabelsD& node);

/// What is told beside the question whether the changes are to be applied: how many nodes belong to nothing, so that
/// they do not come into the scenario. Empty when there are none.
std::string wordsOfLost(const ZoomView& view);

}  // namespace orvent::zoom
