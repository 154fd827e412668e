#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace orvent::canvas {

class LabelsD;

/// Shades in which a canvas shows nodes instead of in their own colours. They are of the view alone: nothing of them is
/// stored, and the nodes do not change.
class Tints {
  public:
    virtual ~Tints() = default;

    /// How strong a node's shade is, 0 to 1; nothing for a node that keeps its colour.
    virtual std::optional<double> share(const LabelsD& node) const = 0;

    /// What the shades may stand for, and which of it they do.
    virtual std::vector<std::string> choices() const = 0;
    virtual std::size_t chosen() const = 0;
    virtual void choose(std::size_t choice) = 0;
    virtual void countAnew() = 0;

    /// From what to what the shades reach, or why there are none.
    virtual std::string range() const = 0;
};

}  // namespace orvent::canvas
