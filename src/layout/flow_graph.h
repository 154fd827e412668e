#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace orvent::layout {

/// An arrow between two nodes, which are numbered from 0.
struct Arc {
    std::int32_t from = 0, to = 0;
    bool operator==(const Arc&) const = default;
    auto operator<=>(const Arc&) const = default;
};

/// The neighbours of each node on one side, in one block of memory.
class Neighbours {
  public:
    enum class Side { before, behind };

    Neighbours() = default;
    Neighbours(std::size_t nodes, const std::vector<Arc>& arcs, Side side);

    std::span<const std::int32_t> of(std::int32_t node) const {
        const auto at = static_cast<std::size_t>(node);
        return {targets_.data() + begins_[at], targets_.data() + begins_[at + 1]};
    }
    std::size_t count(std::int32_t node) const { return of(node).size(); }

  private:
    std::vector<std::size_t> begins_;
    std::vector<std::int32_t> targets_;
};

/// For each node the number of its part, from 0; whatever arcs join is one part, and parts are numbered by their first
/// nodes.
std::vector<std::int32_t> partsOf(std::size_t nodes, const std::vector<Arc>& arcs);

/// An order of the nodes against which few arcs run, and none where the arcs make no circle.
std::vector<std::int32_t> flowOrder(std::size_t nodes, const std::vector<Arc>& arcs);

/// Turns the arcs round that run against the order, and drops loops and doubles; the result is sorted.
std::vector<Arc> alongOrder(const std::vector<std::int32_t>& order, const std::vector<Arc>& arcs);

}  // namespace orvent::layout
