#pragma once

#include <string>

#include "canvas/canvas.h"
#include "platform/dialogs.h"

namespace orvent::canvas {

/// Asks for a zoom ratio; `direction` is "IN" or "OUT". It asks again until the answer is a number above 1, with "," or
/// "." as decimal point. An empty answer gives 1.
double GetRatio(platform::InputBox& input, platform::MessageBox& messages, const std::string& direction);

/// Whether the picture comes back from such a zoom: in, when no node is carried beyond a million twips that was within;
/// out, when no two nodes that are 100 twips or more apart come within one twip.
bool mayZoom(const Canvas& canvas, bool ZoomIN, double By);

/// Scales the model itself: every node's box and the picture are multiplied by `By`, or divided when not `ZoomIN`.
/// Middle points of edges that were set by hand stay. A ratio of 1 does nothing.
void Zoom(Canvas& canvas, bool ZoomIN, double By, platform::Progress& progress);

}  // namespace orvent::canvas
