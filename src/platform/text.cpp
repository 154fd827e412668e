#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace orvent::platform {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string mapped(std::string_view text, char (*map)(char)) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), map);
    return result;
}

template <class Number>
std::optional<Number> parseWhole(std::string_view text) {
    text = trimmed(text);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-') {
            return std::nullopt;
        }
    }
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || text.empty()) {
        return std::nullopt;
    }
    return value;
}

}  // namespace

std::string upperCase(std::string_view text) {
    return mapped(text, upper);
}

std::string lowerCase(std::string_view text) {
    return mapped(text, lower);
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view white = " \t\r\n\v\f";
    const auto first = text.find_first_not_of(white);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(white) - first + 1);
}

std::optional<double> parseNumber(std::string_view text) {
    const auto value = parseWhole<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<long long> parseInteger(std::string_view text) {
    return parseWhole<long long>(text);
}

std::string numberText(float value) {
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr;
    return std::string(buffer, end);
}

}  // namespace orvent::platform
