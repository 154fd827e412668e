#include "platform/letter_case.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>

#include "platform/letter_case_table.h"

namespace orvent::platform {

namespace {

constexpr unsigned char kContinues = 0x80;  // the head of every byte but a character's first

bool continues(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == kContinues;
}

/// Of a character of several bytes.
std::uint32_t decoded(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    std::uint32_t letter = first & (0xFFU >> (character.size() + 1));
    for (const char c : character.substr(1)) {
        letter = letter << 6 | (static_cast<unsigned char>(c) & 0x3FU);
    }
    return letter;
}

void append(std::string& text, std::uint32_t letter) {
    const auto last = [](std::uint32_t bits) { return static_cast<char>(kContinues | (bits & 0x3F)); };
    if (letter < 0x80) {
        text += static_cast<char>(letter);
    } else if (letter < 0x800) {
        text += {static_cast<char>(0xC0 | letter >> 6), last(letter)};
    } else if (letter < 0x10000) {
        text += {static_cast<char>(0xE0 | letter >> 12), last(letter >> 6), last(letter)};
    } else {
        text += {static_cast<char>(0xF0 | letter >> 18), last(letter >> 12), last(letter >> 6), last(letter)};
    }
}

std::uint32_t mapped(std::uint32_t letter, std::span<const CaseRun> runs) {
    const auto run = std::lower_bound(runs.begin(), runs.end(), letter,
                                      [](const CaseRun& row, std::uint32_t sought) { return row.last < sought; });
    const bool hit = run != runs.end() && run->first <= letter && (letter - run->first) % run->step == 0;
    return hit ? letter + static_cast<std::uint32_t>(run->distance) : letter;
}

std::string mapped(std::string_view text, std::span<const CaseRun> runs) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const CaseRun& ascii = runs.front();
        const auto plain = static_cast<unsigned char>(text[0]);
        if (plain < kContinues) {
            const bool hit = ascii.first <= plain && plain <= ascii.last;
            result += static_cast<char>(hit ? plain + ascii.distance : plain);
            text.remove_prefix(1);
            continue;
        }
        const std::string_view character = text.substr(0, firstCharacterLength(text));
        const std::uint32_t letter = character.size() == 1 ? 0 : decoded(character);
        const std::uint32_t other = mapped(letter, runs);
        if (other == letter) {
            result += character;
        } else {
            append(result, other);
        }
        text.remove_prefix(character.size());
    }
    return result;
}

}  // namespace

std::size_t firstCharacterLength(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = first >= 0xF0 && first < 0xF8 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 1;
    if (first >= 0xF8 || length > text.size()) {
        return 1;
    }
    const std::string_view rest = text.substr(1, length - 1);
    const auto second = static_cast<unsigned char>(rest.empty() ? '\0' : rest[0]);
    if ((first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90)) {
        return 1;  // longer than its letter needs
    }
    return std::all_of(rest.begin(), rest.end(), continues) ? length : 1;
}

std::string upperLetters(std::string_view text) {
    return mapped(text, kToUpper);
}

std::string lowerLetters(std::string_view text) {
    return mapped(text, kToLower);
}

}  // namespace orvent::platform
