#include "layout/flow_graph.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace orvent::layout {

Neighbours::Neighbours(std::size_t nodes, const std::vector<Arc>& arcs, Side side)
    : begins_(nodes + 1), targets_(arcs.size()) {
    const auto owner = [side](const Arc& arc) {
        return static_cast<std::size_t>(side == Side::behind ? arc.from : arc.to);
    };
    for (const Arc& arc : arcs) {
        ++begins_[owner(arc) + 1];
    }
    std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
    std::vector<std::size_t> next(begins_.begin(), begins_.end() - 1);
    for (const Arc& arc : arcs) {
        targets_[next[owner(arc)]++] = side == Side::behind ? arc.to : arc.from;
    }
}

std::vector<std::int32_t> partsOf(std::size_t nodes, const std::vector<Arc>& arcs) {
    std::vector<std::int32_t> first(nodes);  // towards the least node of the part
    std::iota(first.begin(), first.end(), 0);
    const auto find = [&first](std::int32_t node) {
        while (first[static_cast<std::size_t>(node)] != node) {
            auto& above = first[static_cast<std::size_t>(node)];
            node = above = first[static_cast<std::size_t>(above)];
        }
        return node;
    };
    for (const Arc& arc : arcs) {
        const std::int32_t a = find(arc.from), b = find(arc.to);
        first[static_cast<std::size_t>(std::max(a, b))] = std::min(a, b);
    }
    std::vector<std::int32_t> part(nodes);
    std::int32_t parts = 0;
    for (std::size_t node = 0; node < nodes; ++node) {
        const std::int32_t root = find(static_cast<std::int32_t>(node));
        part[node] = root == static_cast<std::int32_t>(node) ? parts++ : part[static_cast<std::size_t>(root)];
    }
    return part;
}

namespace {

/// Takes nodes away one by one: sources go to the front of the order, sinks to its end, and when there is neither the
/// node with the most arcs out beyond those in.
class FlowOrder {
  public:
    FlowOrder(std::size_t nodes, const std::vector<Arc>& arcs)
        : before_(nodes, arcs, Neighbours::Side::before),
          behind_(nodes, arcs, Neighbours::Side::behind),
          in_(nodes),
          out_(nodes),
          taken_(nodes) {
        for (const Arc& arc : arcs) {
            ++out_[static_cast<std::size_t>(arc.from)];
            ++in_[static_cast<std::size_t>(arc.to)];
        }
    }

    std::vector<std::int32_t> run() {
        const auto nodes = static_cast<std::int32_t>(taken_.size());
        for (std::int32_t node = 0; node < nodes; ++node) {
            sort(node);
        }
        while (front_.size() + back_.size() < taken_.size()) {
            takeEnds();
            takeBest();
        }
        front_.insert(front_.end(), back_.rbegin(), back_.rend());
        return std::move(front_);
    }

  private:
    std::int32_t surplus(std::int32_t node) const {
        return out_[static_cast<std::size_t>(node)] - in_[static_cast<std::size_t>(node)];
    }

    /// Notes the node where it is to be taken from; former notes of it go stale.
    void sort(std::int32_t node) {
        if (in_[static_cast<std::size_t>(node)] == 0) {
            sources_.push_back(node);
        } else if (out_[static_cast<std::size_t>(node)] == 0) {
            sinks_.push_back(node);
        } else {
            const std::int32_t place = surplus(node);
            auto& half = place >= 0 ? gains_ : losses_;
            const auto at = static_cast<std::size_t>(place >= 0 ? place : -place);
            half.resize(std::max(half.size(), at + 1));
            half[at].push_back(node);
            highest_ = std::max(highest_, place);
        }
    }

    void takeEnds() {
        // By the order in which they became ends, so that a chain stays together.
        while (nextSource_ < sources_.size() || nextSink_ < sinks_.size()) {
            if (nextSource_ < sources_.size()) {
                take(sources_[nextSource_++], front_);
            } else {
                take(sinks_[nextSink_++], back_);
            }
        }
    }

    void takeBest() {
        for (; highest_ >= -static_cast<std::int32_t>(losses_.size()); --highest_) {
            auto& half = highest_ >= 0 ? gains_ : losses_;
            const auto at = static_cast<std::size_t>(highest_ >= 0 ? highest_ : -highest_);
            while (at < half.size() && !half[at].empty()) {
                const std::int32_t node = half[at].back();
                half[at].pop_back();
                if (!taken_[static_cast<std::size_t>(node)] && surplus(node) == highest_) {
                    take(node, front_);
                    return;
                }
            }
        }
    }

    void take(std::int32_t node, std::vector<std::int32_t>& end) {
        if (taken_[static_cast<std::size_t>(node)]) {
            return;
        }
        taken_[static_cast<std::size_t>(node)] = true;
        end.push_back(node);
        drop(behind_.of(node), in_);
        drop(before_.of(node), out_);
    }

    void drop(std::span<const std::int32_t> others, std::vector<std::int32_t>& degree) {
        for (const std::int32_t other : others) {
            if (!taken_[static_cast<std::size_t>(other)]) {
                --degree[static_cast<std::size_t>(other)];
                sort(other);
            }
        }
    }

    Neighbours before_, behind_;
    std::vector<std::int32_t> in_, out_;  // arcs to and from nodes that are not taken
    std::vector<bool> taken_;
    std::vector<std::int32_t> front_, back_, sources_, sinks_;
    std::size_t nextSource_ = 0, nextSink_ = 0;
    std::vector<std::vector<std::int32_t>> gains_, losses_;  // the other nodes by their surplus
    std::int32_t highest_ = 0;
};

}  // namespace

std::vector<std::int32_t> flowOrder(std::size_t nodes, const std::vector<Arc>& arcs) {
    return FlowOrder(nodes, arcs).run();
}

std::vector<Arc> alongOrder(const std::vector<std::int32_t>& order, const std::vector<Arc>& arcs) {
    std::vector<std::size_t> place(order.size());
    for (std::size_t at = 0; at < order.size(); ++at) {
        place[static_cast<std::size_t>(order[at])] = at;
    }
    std::vector<Arc> result;
    result.reserve(arcs.size());
    for (const Arc& arc : arcs) {
        const bool back = place[static_cast<std::size_t>(arc.from)] > place[static_cast<std::size_t>(arc.to)];
        if (arc.from != arc.to) {
            result.push_back(back ? Arc{arc.to, arc.from} : arc);
        }
    }
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

}  // namespace orvent::layout
