#pragma once

#include <bitset>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/node_texts.h"

namespace orvent::analysis {

/// What is searched for: words, all of which must be there, whatever the case of letters; and filters.
struct SearchQuery {
    std::vector<std::string> words;  ///< in lower case
    std::vector<std::string> types;  ///< parts of the name of a type, in lower case; any of them
    std::bitset<kPlaceKinds> kinds;  ///< any of them; none: all
    bool unfinished = false;         ///< only what has a problem
    bool free = false;               ///< only what could be linked and is not
    std::string fault;               ///< a filter that means nothing, in words; then nothing is found

    bool isEmpty() const { return words.empty() && types.empty() && kinds.none() && !unfinished && !free; }
    bool operator==(const SearchQuery&) const = default;
};

/// Reads what was typed: words between blanks, or in quotation marks; `type:`, `kind:` and `is:` are filters, and of
/// the last two the beginning of a word is enough.
SearchQuery parseQuery(std::string_view text);

}  // namespace orvent::analysis
