#pragma once

#include <string>
#include <string_view>

namespace orvent::platform {

/// The text with each character of code 0 to 255 replaced by the one of that code XOR 0x2D; other characters stay.
/// It is its own inverse, so one routine serves for storing and for reading. It obscures a stored value and secures
/// nothing. Text is UTF-8.
std::string ScramblePassword(std::string_view text);

}  // namespace orvent::platform
