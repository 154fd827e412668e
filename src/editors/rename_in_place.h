#pragma once

#include <optional>
#include <string>

#include "editors/set_act_prop.h"

namespace orvent::editors {

/// The name of a node as it is edited in the node's box: of a record set or an activity, and of what a zoom view shows
/// of their members. Nothing for other nodes, for those that repeat another one, and while the canvas takes no input.
std::optional<std::string> nameInPlace(canvas::CanvasForm& form, const canvas::LabelsD& node);

/// Gives the node that name, with the checks and the words that its dialog has for a name; members, links and what
/// reads the node follow as they do there. False when it is refused, which is told; then nothing has changed.
bool renameInPlace(const EditorServices& services, canvas::CanvasForm& form, canvas::LabelsD& node,
                   const std::string& name);

/// An activity of the canvas bears another name. Outputs that its type brought bear the name in their keys, and so do
/// the members downstream that they feed: these follow when `carries` tells so of the output's new key. Gives what was
/// renamed downstream.
canvas::Renames renameActivityIn(canvas::Canvas& canvas, entities::ActivityProperties& activity,
                                 const std::string& former, const std::string& now,
                                 const std::function<bool(const std::string& key)>& carries);

}  // namespace orvent::editors
