#include "platform/letter_case.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>

#include "platform/letter_case_table.h"
#include "platform/utf8.h"

namespace orvent::platform {

namespace {

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
        if (plain < 0x80) {
            const bool hit = ascii.first <= plain && plain <= ascii.last;
            result += static_cast<char>(hit ? plain + ascii.distance : plain);
            text.remove_prefix(1);
            continue;
        }
        std::string_view character = text.substr(0, firstCharacterLength(text));
        text.remove_prefix(character.size());
        if (character.size() == 1) {
            result += character;
        } else {
            appendCharacter(result, mapped(takeCharacter(character), runs));
        }
    }
    return result;
}

}  // namespace

std::string upperLetters(std::string_view text) {
    return mapped(text, kToUpper);
}

std::string lowerLetters(std::string_view text) {
    return mapped(text, kToLower);
}

TextRange findLetters(std::string_view text, std::string_view lowerWord) {
    const std::size_t at = lowerWord.empty() ? std::string::npos : lowerLetters(text).find(lowerWord);
    if (at == std::string::npos) {
        return {};
    }
    // A letter may take other bytes in lower case.
    TextRange range;
    std::string_view rest = text;
    for (std::size_t lower = 0; lower < at + lowerWord.size() && !rest.empty();) {
        const std::string_view character = rest.substr(0, firstCharacterLength(rest));
        (lower < at ? range.begin : range.length) += character.size();
        lower += lowerLetters(character).size();
        rest.remove_prefix(character.size());
    }
    return range;
}

}  // namespace orvent::platform
