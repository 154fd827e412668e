#pragma once

#include <string_view>

namespace orvent::statements {

/// What a search in a text answers when there is no such place.
inline constexpr std::size_t kNone = std::string_view::npos;

}  // namespace orvent::statements
