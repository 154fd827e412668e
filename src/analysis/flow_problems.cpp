#include "analysis/flow_problems.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

namespace orvent::analysis {

namespace {

/// A graph that the looks tell: which nodes lead to one.
struct ByActivities {
    static const std::vector<canvas::NodeNumber>& feeders(const NodeLook& look) { return look.activityFeeders; }
    static canvas::NodeNumber number(canvas::NodeNumber feeder) { return feeder; }
};
struct ByNeeds {
    static const std::vector<StatementCheck::Need>& feeders(const NodeLook& look) { return look.needs; }
    static canvas::NodeNumber number(const StatementCheck::Need& need) { return need.activity; }
};

/// Strongly connected parts of such a graph, with a path of its own: a chain may be longer than the call stack.
template <class Graph>
class CircleSearch {
  public:
    explicit CircleSearch(std::span<const NodeLook> looks) : looks_(looks), order_(looks.size()), low_(looks.size()) {}

    /// The nodes of each part that is a circle.
    std::vector<std::vector<canvas::NodeNumber>> search() {
        for (std::size_t node = 1; node < looks_.size(); ++node) {
            if (order_[node] == 0 && looks_[node].inFlow) {
                walkFrom(node);
            }
        }
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
            const auto& feeders = Graph::feeders(looks_[node]);
            if (path_.back().next == feeders.size()) {
                leave(node);
                continue;
            }
            const auto feeder = static_cast<std::size_t>(Graph::number(feeders[path_.back().next++]));
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
        const auto& feeders = Graph::feeders(looks_[node]);
        const bool feedsItself = std::any_of(feeders.begin(), feeders.end(), [&](const auto& feeder) {
            return static_cast<std::size_t>(Graph::number(feeder)) == node;
        });
        if (open_.end() - first > 1 || feedsItself) {
            std::vector<canvas::NodeNumber>& circle = circles_.emplace_back();
            for (auto at = first; at != open_.end(); ++at) {
                circle.push_back(static_cast<canvas::NodeNumber>(*at));
            }
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
    std::vector<std::vector<canvas::NodeNumber>> circles_;
    std::int32_t entered_ = 0;
};

}  // namespace

std::vector<canvas::NodeNumber> FlowProblems::circles() const {
    std::vector<canvas::NodeNumber> least;
    for (const std::vector<canvas::NodeNumber>& circle : CircleSearch<ByActivities>(looks_).search()) {
        least.push_back(*std::min_element(circle.begin(), circle.end()));
    }
    std::sort(least.begin(), least.end());
    return least;
}

/// The way of the rows, which is the way of the needs backwards.
std::vector<canvas::NodeNumber> FlowProblems::wayBackTo(canvas::NodeNumber node) const {
    std::unordered_map<canvas::NodeNumber, canvas::NodeNumber> neededBy;
    std::vector<canvas::NodeNumber> round = {node};
    for (std::size_t at = 0; at < round.size() && !neededBy.contains(node); ++at) {
        for (const StatementCheck::Need& need : look(round[at]).needs) {
            if (isInFlow(need.activity) && neededBy.emplace(need.activity, round[at]).second) {
                round.push_back(need.activity);
            }
        }
    }
    std::vector<canvas::NodeNumber> way = {node};
    do {
        way.push_back(neededBy.at(way.back()));
    } while (way.back() != node);
    return way;
}

std::vector<FlowProblems::DeniedCircle> FlowProblems::deniedCircles() const {
    std::vector<DeniedCircle> result;
    for (const std::vector<canvas::NodeNumber>& circle : CircleSearch<ByNeeds>(looks_).search()) {
        const std::unordered_set<canvas::NodeNumber> inside(circle.begin(), circle.end());
        for (const canvas::NodeNumber node : circle) {
            const std::vector<StatementCheck::Need>& needs = look(node).needs;
            if (std::any_of(needs.begin(), needs.end(), [&](const StatementCheck::Need& need) {
                    return need.whole && inside.contains(need.activity);
                })) {
                result.push_back({node, wayBackTo(node)});
            }
        }
    }
    std::sort(result.begin(), result.end(),
              [](const DeniedCircle& a, const DeniedCircle& b) { return a.node < b.node; });
    return result;
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
