#pragma once

#include <string>

#include "zoom/zoom_form.h"

namespace orvent::zoom {

/// Whether a member of the view is linked to a constant of that name. Such a constant has no node while the member is
/// folded; another one that took its name would be joined to the member unseen, and known to one end only.
bool isLinkedConstant(const ZoomForm& form, const std::string& name);

}  // namespace orvent::zoom
