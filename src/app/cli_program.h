#pragma once

#include <ostream>
#include <span>

#include "app/places.h"

namespace orvent::app {

/// The whole of `orvent-cli`: does what the words say, writes results to `out` and messages to `errors`, and gives the
/// exit code.
int runCli(std::span<char* const> words, std::ostream& out, std::ostream& errors);

}  // namespace orvent::app
