#pragma once

#include <cstdint>
#include <string_view>

namespace orvent::statements {

/// The trimmed text as a number: an optional sign and digits, within 16 bits. Anything else is a `Fault`.
std::int16_t readNumber(std::string_view text);

}  // namespace orvent::statements
