#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace orvent::statements {

/// Finds where loops end in one text. The braces are matched once, at the first question.
class SpanFinder {
  public:
    explicit SpanFinder(std::string_view text) : text_(text) {}

    /// Bytes from the "[" at `at` to the "}" that closes the first "{" there, both included; 0 or less when there is
    /// none.
    std::ptrdiff_t span(std::size_t at);

    /// True when there is a "{" at `at` or behind it.
    bool braceFollows(std::size_t at);

  private:
    using Brace = std::pair<std::size_t, std::size_t>;  ///< where it opens, and behind its end; 0 when it has none

    std::vector<Brace>::const_iterator firstFrom(std::size_t at);

    std::string_view text_;
    std::vector<Brace> braces_;
    bool matched_ = false;
};

}  // namespace orvent::statements
