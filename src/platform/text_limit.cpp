#include "platform/text_limit.h"

#include <algorithm>

namespace orvent::platform {

namespace {

constexpr std::size_t kShownCharacters = 60;

/// Whether the byte begins a character.
bool begins(char each) {
    return (static_cast<unsigned char>(each) & 0xC0U) != 0x80U;
}

std::size_t charactersOf(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, begins));
}

std::string tooLong(std::size_t length, std::size_t most, const char* unit) {
    if (most == 0 || length <= most) {
        return {};
    }
    return "is too long: it has " + std::to_string(length) + " " + unit + ", and this repository keeps at most " +
           std::to_string(most);
}

}  // namespace

std::string TextLimit::excess(std::string_view text) const {
    const std::string inCharacters = tooLong(charactersOf(text), characters, "characters");
    return inCharacters.empty() ? tooLong(text.size(), bytes, "bytes") : inCharacters;
}

std::string quotedShort(std::string_view text) {
    std::size_t end = 0;
    for (std::size_t characters = 0; end < text.size() && characters < kShownCharacters; ++characters) {
        do {
            ++end;
        } while (end < text.size() && !begins(text[end]));
    }
    return '"' + std::string(text.substr(0, end)) + (end < text.size() ? "...\"" : "\"");
}

}  // namespace orvent::platform
