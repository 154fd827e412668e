#include "platform/utf8.h"

#include <algorithm>

namespace orvent::platform {

namespace {

constexpr unsigned char kContinues = 0x80;  // the head of every byte but a character's first

bool continues(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == kContinues;
}

}  // namespace

std::size_t firstCharacterLength(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 1;
    if (first > 0xF4 || length > text.size()) {
        return 1;
    }
    const std::string_view rest = text.substr(1, length - 1);
    const auto second = static_cast<unsigned char>(rest.empty() ? '\0' : rest[0]);
    if ((first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90)) {
        return 1;  // longer than its letter needs
    }
    if ((first == 0xED && second > 0x9F) || (first == 0xF4 && second > 0x8F)) {
        return 1;  // half of a pair, or beyond the last character
    }
    return std::all_of(rest.begin(), rest.end(), continues) ? length : 1;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = firstCharacterLength(text);
        if (length == 1 && static_cast<unsigned char>(text[0]) >= kContinues) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

std::uint32_t takeCharacter(std::string_view& text) {
    const std::size_t length = firstCharacterLength(text);
    const auto first = static_cast<unsigned char>(text[0]);
    std::uint32_t character = length == 1 ? first : first & (0xFFU >> (length + 1));
    for (const char c : text.substr(1, length - 1)) {
        character = character << 6 | (static_cast<unsigned char>(c) & 0x3FU);
    }
    text.remove_prefix(length);
    return length == 1 && first >= kContinues ? kReplacement : character;
}

void appendCharacter(std::string& text, std::uint32_t character) {
    const auto last = [](std::uint32_t bits) { return static_cast<char>(kContinues | (bits & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += {static_cast<char>(0xC0 | character >> 6), last(character)};
    } else if (character < 0x10000) {
        text += {static_cast<char>(0xE0 | character >> 12), last(character >> 6), last(character)};
    } else {
        text +=
            {static_cast<char>(0xF0 | character >> 18), last(character >> 12), last(character >> 6), last(character)};
    }
}

}  // namespace orvent::platform
