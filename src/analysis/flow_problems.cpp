#include "analysis/flow_problems.h"

#include <algorithm>
#include <numeric>

namespace orvent::analysis {

namespace {

/// Strongly connected parts of the graph of activities and those that provide them, with a path of its own: a chain may
/// be longer than the call stack.
class CircleSearch {
  public:
    explicit CircleSearch(std::span<const NodeLook> looks) : looks_(looks), order_(looks.size()), low_(looks.size()) {}

    std::vector<canvas::NodeNumber> search() {
        for (std::size_t node = 1; node < looks_.size(); ++node) {
            if (order_[node] == 0 && looks_[node].inFlow) {
                walkFrom(node);
            }
        }
        std::sort(circles_.begin(), circles_.end());
        return std::move(circles_);
    }

  private:
    static constexpr std::int32_t kDone = 0x7fffffff;

    struct Step {
        std::size_t node;
        std::size_t next = 0;  ///< which of its feeders is to be met
    };

    void enter(std::size_t node) {
        order_[node] = low_[node] = ++entered_;
        path_.push_back({node});
        open_.push_back(node);
    }

    void walkFrom(std::size_t start) {
        for (enter(start); !path_.empty();) {
            const std::size_t node = path_.back().node;
            const std::vector<canvas::NodeNumber>& feeders = looks_[node].activityFeeders;
            if (path_.back().next == feeders.size()) {
                leave(node);
                continue;
            }
            const auto feeder = static_cast<std::size_t>(feeders[path_.back().next++]);
            if (feeder >= looks_.size() || !looks_[feeder].inFlow) {
                continue;
            }
            if (order_[feeder] == 0) {
                enter(feeder);
            } else {
                low_[node] = std::min(low_[node], order_[feeder]);
            }
        }
    }

    void leave(std::size_t node) {
        path_.pop_back();
        if (!path_.empty()) {
            std::int32_t& before = low_[path_.back().node];
            before = std::min(before, low_[node]);
        }
        if (low_[node] != order_[node]) {
            return;
        }
        const auto first = std::find(open_.rbegin(), open_.rend(), node).base() - 1;
        const bool feedsItself =
            std::binary_search(looks_[node].activityFeeders.begin(), looks_[node].activityFeeders.end(),
                               static_cast<canvas::NodeNumber>(node));
        if (open_.end() - first > 1 || feedsItself) {
            circles_.push_back(static_cast<canvas::NodeNumber>(*std::min_element(first, open_.end())));
        }
        for (auto at = first; at != open_.end(); ++at) {
            order_[*at] = kDone;  // no way back to it is a circle
        }
        open_.erase(first, open_.end());
    }

    std::span<const NodeLook> looks_;
    std::vector<std::int32_t> order_, low_;  ///< by node; 0 until it was met
    std::vector<Step> path_;
    std::vector<std::size_t> open_;
    std::vector<canvas::NodeNumber> circles_;
    std::int32_t entered_ = 0;
};

}  // namespace

std::vector<canvas::NodeNumber> FlowProblems::circles() const {
    return CircleSearch(looks_).search();
}

std::vector<canvas::NodeNumber> FlowProblems::unreachable() const {
    // The ways down, from where each node's feeders tell the ways up.
    std::vector<std::size_t> firsts(looks_.size() + 2);
    for (const NodeLook& here : looks_) {
        for (const canvas::NodeNumber feeder : here.feeders) {
            firsts[isInFlow(feeder) ? static_cast<std::size_t>(feeder) + 2 : 0] += 1;
        }
    }
    firsts[0] = 0;
    std::partial_sum(firsts.begin(), firsts.end(), firsts.begin());
    std::vector<canvas::NodeNumber> targets(firsts.back());
    std::vector<bool> reached(looks_.size());
    std::vector<canvas::NodeNumber> waiting;
    for (std::size_t node = 0; node < looks_.size(); ++node) {
        bool isFed = false;
        for (const canvas::NodeNumber feeder : looks_[node].feeders) {
            if (isInFlow(feeder)) {
                targets[firsts[static_cast<std::size_t>(feeder) + 1]++] = static_cast<canvas::NodeNumber>(node);
                isFed = true;
            }
        }
        if (looks_[node].inFlow && looks_[node].isSource && !isFed) {
            reached[node] = true;
            waiting.push_back(static_cast<canvas::NodeNumber>(node));
        }
    }
    while (!waiting.empty()) {
        const auto node = static_cast<std::size_t>(waiting.back());
        waiting.pop_back();
        for (std::size_t at = firsts[node]; at < firsts[node + 1]; ++at) {
            const auto target = static_cast<std::size_t>(targets[at]);
            if (!reached[target]) {
                reached[target] = true;
                waiting.push_back(targets[at]);
            }
        }
    }
    std::vector<canvas::NodeNumber> left;
    for (std::size_t node = 0; node < looks_.size(); ++node) {
        if (looks_[node].inFlow && !reached[node]) {
            left.push_back(static_cast<canvas::NodeNumber>(node));
        }
    }
    return left;
}

}  // namespace orvent::analysis
