#pragma once

#include <string>
#include <vector>

#include "entities/nodes.h"

namespace orvent::statements {

/// Where the generated statement of an activity does not fit the activity (any more), in words, as far as its text
/// shows it: names, sources, and the number and order of arguments. Nothing for a statement without generated names:
/// that one was written by hand.
std::vector<std::string> misfitsOf(const entities::ActivityProperties& activity);

/// The first of them in a line, and how many more there are; empty when there is none.
std::string misfitLine(const entities::ActivityProperties& activity);

}  // namespace orvent::statements
