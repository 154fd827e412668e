#pragma once

#include <string>

#include "canvas/canvas.h"
#include "canvas/rename.h"
#include "entities/attributes.h"

namespace orvent::links {

/// Carries the new `Key` of an attribute down the data flow: to the inputs that read it, from an input to the outputs
/// and parameters of its activity, from an output to the inputs downstream, as far as they bear `OldKey`. The
/// attribute is either out of the links under its old key, and is synchronised afterwards, or in them under its new
/// one. An owner that has an entity of the new key already ends the chain. A key that a type brought,
/// `<activity>.<name>`, is followed like any other. Every renamed entity keeps its place, and so do the links on both
/// sides of it; `Changed` is set. Gives what was renamed.
canvas::Renames PropagateRename(canvas::Canvas& Form, entities::AttributeProperties& A, const std::string& OldKey);

}  // namespace orvent::links
