// Takes any text as rules. What is read must print as a text that is read as the same, with known words or without.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "rules/parser.h"
#include "rules/printer.h"

using namespace orvent::rules;

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

Parsed reading(std::string_view text, const Words* words) {
    Parsed parsed = parse(text, words);
    require(!parsed.fault || parsed.fault->place.offset <= text.size());
    const Parsed again = parse(print(parsed.rules));
    require(!again.fault && again.rules.size() == parsed.rules.size());
    require(words || again.rules == parsed.rules);
    return parsed;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    reading(text, nullptr);
    Words words;
    words.add("two words", {WordKind::variable, "two words", 0});
    words.add("X>3", {WordKind::constant, "it's", 1});
    words.add("in (1)", {WordKind::name, "in", 2});
    reading(text, &words);
    return 0;
}
