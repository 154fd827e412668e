#include "statements/loop_spans.h"

#include <algorithm>

#include "statements/ldl_generator.h"

namespace orvent::statements {

std::vector<SpanFinder::Brace>::const_iterator SpanFinder::firstFrom(std::size_t at) {
    if (!matched_) {
        matched_ = true;
        std::vector<std::size_t> open;
        for (std::size_t i = 0; i < text_.size(); ++i) {
            if (text_[i] == '{') {
                open.push_back(braces_.size());
                braces_.emplace_back(i, 0);
            } else if (text_[i] == '}' && !open.empty()) {
                braces_[open.back()].second = i + 1;
                open.pop_back();
            }
        }
    }
    return std::lower_bound(braces_.cbegin(), braces_.cend(), Brace{at, 0});
}

std::ptrdiff_t SpanFinder::span(std::size_t at) {
    const auto brace = firstFrom(at);
    const std::size_t behind = brace == braces_.cend() ? 0 : brace->second;
    return static_cast<std::ptrdiff_t>(behind) - static_cast<std::ptrdiff_t>(at);
}

bool SpanFinder::braceFollows(std::size_t at) {
    return firstFrom(at) != braces_.cend();
}

std::ptrdiff_t LDLGenerator::FindLoopSpan(std::size_t at, std::string_view text) {
    return SpanFinder(text).span(at);
}

}  // namespace orvent::statements
