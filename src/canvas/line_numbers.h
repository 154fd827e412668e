#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "canvas/numbers.h"

namespace orvent::canvas {

/// The ends of an edge: its source and its target.
enum class EdgeEnd { start, end };

/// The numbers of the edges that start or end at a node, in order of addition.
class LineNumbers {
  public:
    int Count() const { return static_cast<int>(numbers_.size()); }
    void Add(EdgeNumber line) { numbers_.push_back(line); }
    void Remove(EdgeNumber line) {
        if (!numbers_.empty() && numbers_.back() == line) {
            numbers_.pop_back();  // a walk from the last to the first searches nothing
            return;
        }
        const auto found = std::find(numbers_.begin(), numbers_.end(), line);
        if (found != numbers_.end()) {
            numbers_.erase(found);
        }
    }
    void Clear() { numbers_.clear(); }

    auto begin() const { return numbers_.begin(); }
    auto end() const { return numbers_.end(); }

  private:
    std::vector<EdgeNumber> numbers_;
};

}  // namespace orvent::canvas
