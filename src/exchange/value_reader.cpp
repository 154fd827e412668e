#include "exchange/value_reader.h"

#include <array>
#include <charconv>
#include <cmath>

namespace orvent::exchange {

namespace {

constexpr std::array<const char*, 8> kKindWords = {"null",     "true or false", "a number", "a number",
                                                   "a number", "a text",        "a list",   "an object"};

}  // namespace

void ValueReader::wrongKind(Place at, const char* expected) const {
    tree_.refuse(
        at, std::string("expected ") + expected + ", found " + kKindWords[static_cast<std::size_t>(tree_.kind(at))]);
}

JsonTree::Place ValueReader::required(Place object, Key key) const {
    const Place at = tree_.member(object, key);
    if (at == JsonTree::kNowhere) {
        tree_.refuse(object, "\"" + std::string(nameOf(key)) + "\" is missing");
    }
    return at;
}

void ValueReader::object(Place at, std::uint64_t keys) const {
    if (tree_.kind(at) != JsonKind::object) {
        wrongKind(at, "an object");
    }
    tree_.allowOnly(at, keys);
}

std::string_view ValueReader::view(Place at) const {
    if (tree_.kind(at) != JsonKind::text) {
        wrongKind(at, "a text");
    }
    return tree_.text(at);
}

std::string ValueReader::lines(Place at) const {
    if (tree_.kind(at) == JsonKind::text) {
        return text(at);
    }
    if (tree_.kind(at) != JsonKind::array) {
        wrongKind(at, "a text or a list of its lines");
    }
    std::string whole;
    bool first = true;
    tree_.each(at, [&](Place line) {
        whole += first ? "" : "\n";
        whole += view(line);
        first = false;
    });
    return whole;
}

bool ValueReader::boolean(Place at) const {
    if (tree_.kind(at) != JsonKind::boolean) {
        wrongKind(at, "true or false");
    }
    return tree_.boolean(at);
}

std::int64_t ValueReader::integer(Place at, std::int64_t least, std::int64_t most) const {
    const JsonKind kind = tree_.kind(at);
    const std::string expected = "a whole number from " + std::to_string(least) + " to " + std::to_string(most);
    if (kind == JsonKind::unsignedInteger ||
        (kind == JsonKind::integer && (tree_.integer(at) < least || tree_.integer(at) > most))) {
        tree_.refuse(at, "the number is out of range; expected " + expected);
    }
    if (kind != JsonKind::integer) {
        wrongKind(at, expected.c_str());
    }
    return tree_.integer(at);
}

float ValueReader::twips(Place at, float most) const {
    const JsonKind kind = tree_.kind(at);
    if (kind != JsonKind::integer && kind != JsonKind::unsignedInteger && kind != JsonKind::real) {
        wrongKind(at, "a number of twips");
    }
    const float value = kind == JsonKind::real      ? tree_.real(at)
                        : kind == JsonKind::integer ? static_cast<float>(tree_.integer(at))
                                                    : std::numeric_limits<float>::infinity();
    if (!(std::abs(value) <= most)) {
        tree_.refuse(at, "the number is out of range; expected at most " +
                             std::to_string(static_cast<long long>(most)) + " twips");
    }
    return value;
}

std::uint64_t ValueReader::mark(Place at) const {
    const std::string_view digits = view(at);
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        tree_.refuse(at, "expected a mark of up to 16 hexadecimal digits");
    }
    return value;
}

}  // namespace orvent::exchange
