#pragma once

#include <optional>
#include <span>
#include <string>

namespace orvent::app {

/// What the program prints instead of starting, for the words behind its name; nothing when it is to start. Needs no
/// display.
std::optional<std::string> answerTo(std::span<char* const> words);

}  // namespace orvent::app
