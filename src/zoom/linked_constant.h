#pragma once

#include <string>

#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// Whether a member of the view is linked to a constant of that name. Such a constant has no node while the member is
/// collapsed; another one that took its name would be joined to the member unseen, and known to one end only.
bool isLinkedConstant(const ZoomView& view, const std::string& name);

/// Whether a constant may not bear the name, though no node of the view does: a linked constant has it, or a node of
/// the scenario, of which links by that name would be taken to speak.
inline bool isTakenFromConstants(const ZoomView& view, const std::string& name) {
    return view.ParForm().isNameTaken(name) || isLinkedConstant(view, name);
}

}  // namespace orvent::zoom
