#pragma once

#include <vector>

#include "canvas/canvas.h"
#include "links/check_consistency.h"

namespace orvent::links {

/// The links that a provider edge of a design window stands for, each by what its two members are called: all that lead
/// from its source to members of its target. Edges that run beside it stand for the same ones.
std::vector<EdgeNames> linksBehind(const canvas::Canvas& form, const canvas::LinesD& edge);

/// How many there are, with the first few of them.
std::string linkWords(const std::vector<EdgeNames>& links);

}  // namespace orvent::links
