#pragma once

#include <string>

#include "entities/nodes.h"

namespace orvent::links {

/// Lets the members of an activity follow its new name: owners, links inside the activity, the keys of its functions
/// and of what its type brought. The far ends of links that leave it are not touched.
void renameActivity(entities::ActivityProperties& activity, const std::string& formerName, const std::string& newName);

/// `text` with the owner at its head renamed, unchanged when it has another head.
std::string withNewHead(const std::string& text, const std::string& formerName, const std::string& newName);

}  // namespace orvent::links
