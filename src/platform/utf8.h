#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvent::platform {

/// Stands for what is no character.
inline constexpr std::uint32_t kReplacement = 0xFFFD;

/// How many bytes of the text its first character takes; 1 where it is no UTF-8, 0 for an empty text.
std::size_t firstCharacterLength(std::string_view text);

bool isUtf8(std::string_view text);

/// Takes the first character from a text that is not empty; `kReplacement` where it is no UTF-8.
std::uint32_t takeCharacter(std::string_view& text);

void appendCharacter(std::string& text, std::uint32_t character);

}  // namespace orvent::platform
