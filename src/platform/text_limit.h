#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvent::platform {

/// What a text column of the repository is for.
enum class TextColumn { plain, key };

/// The most that a text of a column may have; 0 for no limit.
struct TextLimit {
    std::size_t characters = 0;
    std::size_t bytes = 0;  ///< in UTF-8

    /// What is too much about the text ("is too long: it has 12 characters, and this repository keeps at most 10"), or
    /// empty when it fits.
    std::string excess(std::string_view text) const;
};

/// The text in quotation marks, cut to what a message has room for.
std::string quotedShort(std::string_view text);

}  // namespace orvent::platform
