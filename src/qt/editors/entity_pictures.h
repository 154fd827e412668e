#pragma once

#include "qt/forms/list_model.h"

namespace orvent::qt {

/// The pictures of the rows and nodes of the entity dialogs, in the colour of the list that uses them. The state of a
/// node is the box beside it.
QIcon entityPicture(const std::string& image, std::int32_t colour);

}  // namespace orvent::qt
