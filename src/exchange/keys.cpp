#include "exchange/keys.h"

#include <algorithm>
#include <array>
#include <functional>

namespace orvent::exchange {

namespace {

constexpr std::array<std::string_view, static_cast<std::size_t>(Key::unknown)> kKeyNames = {
    "activities",   "angle",      "attributes",  "box",          "changed",    "comment",       "consumer",
    "data",         "deleted",    "description", "edges",        "entityName", "format",        "from",
    "fromPoint",    "functions",  "id",          "ids",          "inputs",     "inputsChanged", "key",
    "kind",         "ldl",        "log",         "mark",         "name",       "node",          "nodes",
    "outputs",      "parameters", "program",     "providedFrom", "provider",   "providerFor",   "regulatedFrom",
    "regulatorFor", "rows",       "scenario",    "schemata",     "source",     "sql",           "stored",
    "tag",          "to",         "toPoint",     "type",         "types",      "version"};

static_assert(std::ranges::is_sorted(kKeyNames) && !kKeyNames.back().empty());
static_assert(static_cast<unsigned>(Key::unknown) < 64, "a set of keys is one number");

}  // namespace

std::string_view nameOf(Key key) {
    const auto at = static_cast<std::size_t>(key);
    return at < kKeyNames.size() ? kKeyNames[at] : std::string_view("?");
}

Key keyNamed(std::string_view name) {
    const auto found = std::ranges::lower_bound(kKeyNames, name);
    return found != kKeyNames.end() && *found == name ? static_cast<Key>(found - kKeyNames.begin()) : Key::unknown;
}

}  // namespace orvent::exchange
