#include "entities/key_grammar.h"

#include <array>

namespace orvent::entities {

namespace {

constexpr std::array<std::string_view, 9> kInfixes = {"", ".IN.", ".OUT.", ".PARAM.", ".", ".OUT.", ".IN.", "", ""};
constexpr auto kNone = std::string_view::npos;

std::size_t secondDot(std::string_view s) {
    const auto first = s.find('.');
    return first == kNone ? kNone : s.find('.', first + 1);
}

std::string behind(std::string_view s, std::size_t dot) {
    return std::string(dot == kNone ? s : s.substr(dot + 1));
}

}  // namespace

std::string_view infix(NodeKindCode nodeKind) {
    const auto kind = static_cast<std::size_t>(nodeKind);
    return kind < kInfixes.size() ? kInfixes[kind] : std::string_view();
}

std::string wholeKey(std::string_view owner, NodeKindCode nodeKind, std::string_view key) {
    const std::string_view between = infix(nodeKind);
    std::string result;
    if (!between.empty()) {
        result.reserve(owner.size() + between.size() + key.size());
        result.append(owner).append(between);
    }
    return result.append(key);
}

std::string relativeKey(NodeKindCode nodeKind, std::string_view key) {
    return std::string(infix(nodeKind)).append(key);
}

bool HasDot(std::string_view s) {
    return s.find('.') != kNone;
}

std::string AfterLastDot(std::string_view s) {
    return behind(s, s.rfind('.'));
}

std::string BetweenFirstAndLastDot(std::string_view s) {
    const auto first = s.find('.');
    const auto last = s.rfind('.');
    return first == last ? std::string() : std::string(s.substr(first + 1, last - first - 1));
}

std::string BeforeFirstDot(std::string_view s) {
    const auto dot = s.find('.');
    return dot == kNone ? std::string() : std::string(s.substr(0, dot));
}

std::string SecondSegment(std::string_view s) {
    const auto first = s.find('.');
    if (first == kNone) {
        return {};
    }
    const auto second = s.find('.', first + 1);
    return std::string(s.substr(first + 1, second == kNone ? kNone : second - first - 1));
}

std::string AfterFirstDot(std::string_view s) {
    return behind(s, s.find('.'));
}

std::string AfterSecondDot(std::string_view s) {
    return behind(s, secondDot(s));
}

std::string BeforeParenthesis(std::string_view s) {
    return std::string(s.substr(0, s.find('(')));
}

std::string BeforeDash(std::string_view s) {
    const auto dash = s.find('-');
    return dash == kNone || dash == 0 ? std::string() : std::string(s.substr(0, dash));
}

}  // namespace orvent::entities
