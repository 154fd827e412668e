#pragma once

#include <string>
#include <vector>

#include "entities/key_grammar.h"

namespace orvent::canvas {

/// A member that bears another key from some moment on, or, with `KindFree`, an owner that bears another name.
struct Rename {
    std::string owner;  ///< the activity or the record set; empty of an owner
    entities::NodeKindCode kind = entities::KindFree;
    std::string former, now;
    std::string function = {};  ///< the key of the function whose input or output it is
};

using Renames = std::vector<Rename>;

}  // namespace orvent::canvas
