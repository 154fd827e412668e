#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvent::platform {

/// The letters of a UTF-8 text in upper or lower case, each by one letter as Unicode's simple mapping has it, in every
/// locale the same. What is no letter, or no UTF-8, stays.
std::string upperLetters(std::string_view text);
std::string lowerLetters(std::string_view text);

/// Bytes of a text.
struct TextRange {
    std::size_t begin = 0, length = 0;
    bool operator==(const TextRange&) const = default;
};

/// Where a text first has a word that is in lower case, whatever the case of its own letters; of length 0 when it has
/// not.
TextRange findLetters(std::string_view text, std::string_view lowerWord);

}  // namespace orvent::platform
