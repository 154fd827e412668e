#pragma once

#include <memory>
#include <string>

#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// Gives a node of an attribute, a parameter, a constant or a function another name, and its entity with it: the entity
/// keeps its place among the members of its owner, and the far ends of its links follow. `name` is the bare name of a
/// member and the whole key of a function. False when the name is taken, which was told; then nothing has changed.
bool RenameNode(ZoomView& view, canvas::LabelsD& node, const std::string& name);

/// Puts another function into a function's node: the former one's links go on both ends, and its rows are deleted at
/// the next save. The node shows the new parameters when it showed those before.
void ReplaceFunction(ZoomView& view, canvas::LabelsD& node, std::shared_ptr<entities::FunctionProperties> function);

/// Whether a node stands by itself: no owner that the view shows holds its entity.
bool standsAlone(const ZoomView& view, const canvas::LabelsD& node);

}  // namespace orvent::zoom
