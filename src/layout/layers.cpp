#include "layout/layers.h"

#include <algorithm>
#include <limits>

namespace orvent::layout {

namespace {

constexpr int kMostShifts = 16;
constexpr std::int64_t kMostLooks = 4;  // of a round, for each node and arc
constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();

/// Shortens arcs by moving what has more arcs on one side than on the other to that side: whole branches of trees that
/// are made of arcs which cannot be shorter.
class Layering {
  public:
    Layering(const std::vector<std::int32_t>& order, const std::vector<Arc>& arcs)
        : order_(order),
          before_(order.size(), arcs, Neighbours::Side::before),
          behind_(order.size(), arcs, Neighbours::Side::behind),
          layer_(order.size()),
          place_(order.size()) {}

    std::vector<std::int32_t> run() {
        for (const std::int32_t node : order_) {
            for (const std::int32_t other : before_.of(node)) {
                layer(node) = std::max(layer(node), layer(other) + 1);
            }
        }
        int idle = 0;
        for (int round = 0; round < kMostShifts && idle < 2; ++round) {
            growTrees(round % 2 == 1);
            idle = shiftBranches() ? 0 : idle + 1;
        }
        const auto least = std::min_element(layer_.begin(), layer_.end());
        for (const std::int32_t first = least == layer_.end() ? 0 : *least; std::int32_t & each : layer_) {
            each -= first;
        }
        return std::move(layer_);
    }

  private:
    /// A node on the walk through a tree, with all that is reached through it: the next `size` nodes of the walk.
    struct Branch {
        std::int32_t node = 0;
        std::int32_t parent = -1;   ///< its place on the walk
        bool parentBefore = false;  ///< the arc comes from the parent
        bool shifted = false;       ///< a part of it, in this round
        std::int32_t size = 1;
        std::int32_t pull = 0;  ///< arcs out of the branch beyond those into it
    };

    std::int32_t& layer(std::int32_t node) { return layer_[static_cast<std::size_t>(node)]; }
    std::int32_t& place(std::int32_t node) { return place_[static_cast<std::size_t>(node)]; }

    void growTrees(bool backwards) {
        walk_.clear();
        std::fill(place_.begin(), place_.end(), -1);
        for (std::size_t at = 0; at < order_.size(); ++at) {
            open_.push_back({order_[backwards ? order_.size() - 1 - at : at]});
            while (!open_.empty()) {
                Branch branch = open_.back();
                open_.pop_back();
                if (place(branch.node) >= 0) {
                    continue;
                }
                place(branch.node) = static_cast<std::int32_t>(walk_.size());
                branch.pull = static_cast<std::int32_t>(behind_.count(branch.node)) -
                              static_cast<std::int32_t>(before_.count(branch.node));
                walk_.push_back(branch);
                openNeighbours(branch.node, backwards);
                openNeighbours(branch.node, !backwards);
            }
        }
    }

    void openNeighbours(std::int32_t node, bool behind) {
        for (const std::int32_t other : (behind ? behind_ : before_).of(node)) {
            if (place(other) < 0 && std::abs(layer(other) - layer(node)) == 1) {
                open_.push_back({other, place(node), behind});
            }
        }
    }

    /// True when a branch went.
    bool shiftBranches() {
        std::int64_t looks = kMostLooks * static_cast<std::int64_t>(order_.size());
        bool shifted = false;
        for (std::size_t at = walk_.size(); at-- > 0;) {
            Branch& branch = walk_[at];
            const bool right = branch.pull > 0;
            const bool held = branch.parent >= 0 && branch.parentBefore != right;
            if (branch.pull != 0 && !held && !branch.shifted && looks > 0) {
                const std::int32_t room = roomOf(at, right);
                looks -= branch.size;
                for (std::size_t each = at; each < at + static_cast<std::size_t>(branch.size); ++each) {
                    layer(walk_[each].node) += right ? room : -room;
                }
                branch.shifted = room > 0;
                shifted |= branch.shifted;
            }
            if (branch.parent >= 0) {
                Branch& parent = walk_[static_cast<std::size_t>(branch.parent)];
                parent.size += branch.size;
                parent.pull += branch.pull;
                parent.shifted |= branch.shifted;
            }
        }
        return shifted;
    }

    /// How many layers a branch can go to that side.
    std::int32_t roomOf(std::size_t first, bool right) {
        const auto begin = static_cast<std::int32_t>(first);
        const std::int32_t end = begin + walk_[first].size;
        std::int32_t room = kFar;
        for (std::int32_t at = begin; at < end && room > 0; ++at) {
            const std::int32_t node = walk_[static_cast<std::size_t>(at)].node;
            for (const std::int32_t other : (right ? behind_ : before_).of(node)) {
                if (place(other) < begin || place(other) >= end) {
                    room = std::min(room, std::abs(layer(other) - layer(node)) - 1);
                }
            }
        }
        return room;
    }

    const std::vector<std::int32_t>& order_;
    Neighbours before_, behind_;
    std::vector<std::int32_t> layer_;
    std::vector<std::int32_t> place_;  // of each node on the walk
    std::vector<Branch> walk_, open_;
};

}  // namespace

std::vector<std::int32_t> layersOf(const std::vector<std::int32_t>& order, const std::vector<Arc>& arcs) {
    return Layering(order, arcs).run();
}

}  // namespace orvent::layout
