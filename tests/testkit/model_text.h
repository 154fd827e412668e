#pragma once

#include <string>

#include "canvas/canvas.h"

namespace orvent::testkit {

/// The whole model of a canvas as text, line by line: nodes with their entities, members with their links, edges by
/// the names of their ends. Two scenarios with one text are equal in all that the repository keeps. Left out is what it
/// does not keep: identifiers, change marks, readiness and the names of functions, which come back from their keys. The
/// links of one list are sorted, since mirror links return in the order of synchronising.
std::string modelText(const canvas::Canvas& form);

}  // namespace orvent::testkit
