#include "layout/rows.h"

#include <algorithm>
#include <utility>

#include "layout/sorted_links.h"

namespace orvent::layout {

namespace {

constexpr int kTrialRounds = 4, kMostRounds = 24, kPatience = 3;
constexpr double kWorthwhile = 0.995;  // of the crossings, what a round must leave at most to count
constexpr int kMostExchanges = 6;

enum class Search { deep, wide };

/// Rows in the order in which a search from neighbour to neighbour finds the vertices.
Rows searched(const Layered& graph, Search search) {
    Rows found;
    std::vector<bool> seen(graph.nodes.size());
    std::vector<std::int32_t> open;
    std::size_t next = 0;
    const auto push = [&](std::int32_t vertex) {
        if (!seen[static_cast<std::size_t>(vertex)]) {
            open.push_back(vertex);
            seen[static_cast<std::size_t>(vertex)] = search == Search::wide;
        }
    };
    for (std::size_t start = 0; start < graph.nodes.size(); ++start) {
        push(static_cast<std::int32_t>(start));
        while (next < open.size()) {
            const std::int32_t vertex = search == Search::deep ? open.back() : open[next++];
            if (search == Search::deep) {
                open.pop_back();
                if (seen[static_cast<std::size_t>(vertex)]) {
                    continue;
                }
                seen[static_cast<std::size_t>(vertex)] = true;
            }
            found.push_back(vertex);
            for (const Neighbours* side : {&graph.behind, &graph.before}) {
                const auto others = side->of(vertex);
                std::for_each(others.rbegin(), others.rend(), push);  // so that the first one is found first
            }
        }
    }
    // By layers, and within each by when they were found.
    Rows rows(found.size());
    std::vector<std::size_t> free(graph.begins);
    std::vector<std::int32_t> layers(found.size());
    for (std::size_t layer = 0; layer < graph.layers(); ++layer) {
        std::fill(layers.begin() + static_cast<std::ptrdiff_t>(graph.begins[layer]),
                  layers.begin() + static_cast<std::ptrdiff_t>(graph.begins[layer + 1]),
                  static_cast<std::int32_t>(layer));
    }
    for (const std::int32_t vertex : found) {
        rows[free[static_cast<std::size_t>(layers[static_cast<std::size_t>(vertex)])]++] = vertex;
    }
    return rows;
}

/// Betters the rows by turns: each row is sorted by where its neighbours in the row before stand, or in the row behind,
/// and then neighbours within it change places.
class RowSorting {
  public:
    RowSorting(const Layered& graph, Search search)
        : graph_(graph), links_(graph, searched(graph, search)), best_(links_.rows()), least_(links_.crossings()) {}

    std::int64_t least() const { return least_; }
    Rows takeBest() { return std::move(best_); }

    /// Goes on to that round, unless nothing is to be gained.
    void run(int end) {
        for (; round_ < end && idle_ < kPatience && least_ > 0; ++round_) {
            const int round = round_;
            const std::size_t count = graph_.layers();
            const bool onwards = round % 2 == 0;
            for (std::size_t at = 1; at < count; ++at) {
                sortRow(onwards ? at : count - 1 - at, onwards ? graph_.before : graph_.behind, round % 4 >= 2);
            }
            links_.sortAllLists();
            crossings_ = links_.crossings();
            exchangeAll(round % 4 < 2);
            idle_ = static_cast<double>(crossings_) < kWorthwhile * static_cast<double>(least_) ? 0 : idle_ + 1;
            if (crossings_ < least_) {
                least_ = crossings_;
                best_ = links_.rows();
            }
        }
    }

  private:
    struct Wish {
        double place;
        std::int32_t rank;  ///< among equal ones
        std::int32_t vertex;
    };

    double middle(std::span<const std::int32_t> others) const {
        std::int64_t sum = 0;
        for (const std::int32_t other : others) {
            sum += links_.place(other);
        }
        return static_cast<double>(sum) / static_cast<double>(others.size());
    }

    /// Vertices without a neighbour on that side keep their places.
    void sortRow(std::size_t layer, const Neighbours& side, bool turnEqual) {
        const auto row = links_.row(layer);
        vertices_.assign(row.begin(), row.end());
        wishes_.clear();
        for (const std::int32_t vertex : vertices_) {
            if (const auto others = side.of(vertex); !others.empty()) {
                const auto rank = static_cast<std::int32_t>(wishes_.size());
                wishes_.push_back({middle(others), turnEqual ? -rank : rank, vertex});
            }
        }
        std::sort(wishes_.begin(), wishes_.end(), [](const Wish& a, const Wish& b) {
            return a.place != b.place ? a.place < b.place : a.rank < b.rank;
        });
        auto wish = wishes_.begin();
        for (std::int32_t& vertex : vertices_) {
            if (!side.of(vertex).empty()) {
                vertex = (wish++)->vertex;
            }
        }
        links_.setRow(layer, vertices_);
    }

    /// Changes neighbours' places until that takes no crossing away any more. A row is looked at again when it or one
    /// beside it has changed.
    void exchangeAll(bool equal) {
        open_.assign(graph_.layers(), true);
        for (int pass = 0; pass < kMostExchanges; ++pass) {
            const std::int64_t former = crossings_;
            for (std::size_t layer = 0; layer < open_.size(); ++layer) {
                if (open_[layer]) {
                    open_[layer] = false;
                    exchange(layer, equal);
                }
            }
            if (crossings_ == former) {
                break;
            }
        }
    }

    /// With `equal` vertices change also where that costs nothing.
    void exchange(std::size_t layer, bool equal) {
        const auto row = links_.row(layer);
        vertices_.assign(row.begin(), row.end());
        bool changed = false;
        std::int64_t gain = 0;
        for (std::size_t at = 1; at < vertices_.size(); ++at) {
            if (!links_.cross(vertices_[at - 1], vertices_[at])) {
                continue;
            }
            const SortedLinks::Choice choice = links_.choice(vertices_[at - 1], vertices_[at]);
            if (choice.below < choice.above || (equal && choice.below == choice.above)) {
                std::swap(vertices_[at - 1], vertices_[at]);
                changed = true;
                gain += choice.above - choice.below;
            }
        }
        if (changed) {
            links_.setRow(layer, vertices_);
            links_.sortListsBeside(layer);
        }
        if (gain > 0) {
            crossings_ -= gain;
            for (std::size_t each = layer > 0 ? layer - 1 : 0; each < std::min(layer + 2, open_.size()); ++each) {
                open_[each] = true;
            }
        }
    }

    const Layered& graph_;
    SortedLinks links_;
    std::vector<Wish> wishes_;
    std::vector<std::int32_t> vertices_;
    std::vector<bool> open_;  // rows to be looked at
    std::int64_t crossings_ = 0;
    Rows best_;
    std::int64_t least_;
    int round_ = 0, idle_ = 0;
};

}  // namespace

Rows rowsOf(const Layered& graph) {
    RowSorting deep(graph, Search::deep), wide(graph, Search::wide);
    deep.run(kTrialRounds);
    if (deep.least() > 0) {
        wide.run(kTrialRounds);
    }
    RowSorting& better = wide.least() < deep.least() ? wide : deep;
    better.run(kMostRounds);
    return better.takeBest();
}

}  // namespace orvent::layout
