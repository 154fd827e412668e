#pragma once

#include <string>

#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// A data type's entity as its tool tip tells it: the name and, in parentheses, the type's name.
inline std::string typedName(const ZoomView& view, const std::string& name, std::int16_t type) {
    return name + "(" + view.catalogue().dataTypes.name(type) + ")";
}

}  // namespace orvent::zoom
