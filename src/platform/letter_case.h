#pragma once

#include <string>
#include <string_view>

namespace orvent::platform {

/// The letters of a UTF-8 text in upper or lower case, each by one letter as Unicode's simple mapping has it, in every
/// locale the same. What is no letter, or no UTF-8, stays.
std::string upperLetters(std::string_view text);
std::string lowerLetters(std::string_view text);

}  // namespace orvent::platform
