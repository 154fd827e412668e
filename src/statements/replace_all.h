#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvent::statements {

/// A text beyond this many bytes ends a pass as a fault.
inline constexpr std::size_t kMostCharacters = 16'000'000;

/// How much work a pass may take before it counts as endless, roughly in bytes that are copied: a text of the greatest
/// size, copied a hundred times. Only a text that replaces its own replacements comes near.
class WorkLimit {
  public:
    /// Throws a `Fault` when the work is spent.
    void spend(std::size_t bytes);
    /// The same for bytes that are only looked through, and for the step as such.
    void spendSearch(std::size_t bytes) { spend(bytes / 16 + 500); }

  private:
    std::size_t left_ = 100 * kMostCharacters;
};

/// Thrown where a pass meets a text that its quick way cannot tell; the pass starts over in the plain way.
struct NotSimple {};

/// Replaces every occurrence of `from`, which is not empty, from left to right. A result beyond `kMostCharacters` is a
/// `Fault` and changes nothing.
void replaceAll(std::string& text, std::string_view from, std::string_view to, WorkLimit& limit);

/// Throws a `Fault` for a text beyond `kMostCharacters`.
void checkSize(std::size_t bytes);

}  // namespace orvent::statements
