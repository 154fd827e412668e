#include "exchange/keys.h"

#include <algorithm>
#include <array>
#include <functional>

namespace orvent::exchange {

namespace {

constexpr std::array<std::string_view, static_cast<std::size_t>(Key::unknown)> kKeyNames = {
    "activities", "angle",    "attributes",   "box",           "changed",     "column",        "columns",
    "comment",    "consumer", "data",         "deleted",       "description", "duplicates",    "edges",
    "entityName", "expected", "facts",        "format",        "from",        "fromPoint",     "functions",
    "id",         "ids",      "inputs",       "inputsChanged", "key",         "kind",          "ldl",
    "log",        "mark",     "name",         "node",          "nodes",       "operator",      "outputs",
    "parameters", "program",  "providedFrom", "provider",      "providerFor", "regulatedFrom", "regulatorFor",
    "rows",       "scenario", "schemata",     "source",        "sql",         "stored",        "tag",
    "to",         "toPoint",  "type",         "types",         "value",       "version"};

static_assert(std::ranges::is_sorted(kKeyNames) && !kKeyNames.back().empty());
static_assert(static_cast<unsigned>(Key::unknown) < 64, "a set of keys is one number");

constexpr std::size_t kLetters = 26;

/// The place of the first name from each small letter on, and behind the last one the end.
constexpr auto kFirstOf = [] {
    std::array<std::uint8_t, kLetters + 1> first{};
    for (std::size_t letter = 0; letter <= kLetters; ++letter) {
        while (first[letter] < kKeyNames.size() && kKeyNames[first[letter]].front() < static_cast<char>('a' + letter)) {
            ++first[letter];
        }
    }
    return first;
}();

}  // namespace

std::string_view nameOf(Key key) {
    const auto at = static_cast<std::size_t>(key);
    return at < kKeyNames.size() ? kKeyNames[at] : std::string_view("?");
}

Key keyNamed(std::string_view name) {
    const std::size_t letter = name.empty() ? kLetters : static_cast<unsigned char>(name.front()) - std::size_t{'a'};
    if (letter >= kLetters) {
        return Key::unknown;
    }
    for (std::size_t at = kFirstOf[letter]; at < kFirstOf[letter + 1]; ++at) {
        if (kKeyNames[at] == name) {
            return static_cast<Key>(at);
        }
    }
    return Key::unknown;
}

}  // namespace orvent::exchange
