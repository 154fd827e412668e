#include "analysis/budgeted_walk.h"

#include <algorithm>
#include <bit>

namespace orvent::analysis {

namespace {

constexpr std::int32_t kTooMany = BudgetedWalk::kLargestBudget + 1;
// A shorter walk is quicker walked than looked up.
constexpr std::int32_t kShort = 64;
constexpr std::size_t kWordBits = 64;

}  // namespace

std::int32_t WalkGraph::text(const std::string& words) {
    return numbers_.try_emplace(words, static_cast<std::int32_t>(numbers_.size())).first->second;
}

BudgetedWalk::BudgetedWalk(const WalkGraph& graph)
    : graph_(graph),
      words_((graph.texts() + kWordBits - 1) / kWordBits),
      visits_(graph.vertices(), kTooMany),
      closures_(graph.vertices()),
      met_(words_) {
    for (const std::size_t vertex : fromTheEnds()) {
        measure(vertex);
    }
}

/// The vertices that lead into no cycle, each behind all that it leads to.
std::vector<std::size_t> BudgetedWalk::fromTheEnds() const {
    const std::size_t vertices = graph_.vertices();
    std::vector<std::size_t> open(vertices), firsts(vertices + 1), order;
    const auto eachTarget = [&](auto act) {
        for (std::size_t vertex = 0; vertex < vertices; ++vertex) {
            for (std::size_t at = graph_.first(vertex); at < graph_.end(vertex); ++at) {
                if (const std::int32_t target = graph_.step(at).target; target != WalkGraph::kNone) {
                    act(vertex, static_cast<std::size_t>(target));
                }
            }
        }
    };
    eachTarget([&](std::size_t vertex, std::size_t target) {
        ++open[vertex];
        ++firsts[target + 1];
    });
    for (std::size_t vertex = 0; vertex < vertices; ++vertex) {
        firsts[vertex + 1] += firsts[vertex];
    }
    std::vector<std::size_t> sources(firsts.back()), places(firsts.begin(), firsts.end() - 1);
    eachTarget([&](std::size_t vertex, std::size_t target) { sources[places[target]++] = vertex; });
    for (std::size_t vertex = 0; vertex < vertices; ++vertex) {
        if (open[vertex] == 0) {
            order.push_back(vertex);
        }
    }
    for (std::size_t done = 0; done < order.size(); ++done) {
        for (std::size_t at = firsts[order[done]]; at < firsts[order[done] + 1]; ++at) {
            if (--open[sources[at]] == 0) {
                order.push_back(sources[at]);
            }
        }
    }
    return order;
}

void BudgetedWalk::measure(std::size_t vertex) {
    std::int32_t visits = 1;
    for (std::size_t at = graph_.first(vertex); at < graph_.end(vertex) && visits < kTooMany; ++at) {
        if (const std::int32_t target = graph_.step(at).target; target != WalkGraph::kNone) {
            visits = std::min(kTooMany, visits + visits_[static_cast<std::size_t>(target)]);
        }
    }
    visits_[vertex] = visits;
    if (visits > kShort && visits < kTooMany) {
        walk(vertex, visits);
        closures_[vertex] = met_;
    }
}

std::int32_t BudgetedWalk::count(std::size_t vertex, std::int32_t budget) {
    if (budget <= 0) {
        return 0;
    }
    const bool whole = isKnown(vertex) && visits_[vertex] <= budget;
    if (!whole) {
        walk(vertex, budget);
    }
    std::int32_t found = 0;
    for (const Word word : whole ? closures_[vertex] : met_) {
        found += std::popcount(word);
    }
    return found;
}

void BudgetedWalk::meet(std::int32_t text) {
    const auto number = static_cast<std::size_t>(text);
    met_[number / kWordBits] |= Word{1} << (number % kWordBits);
}

void BudgetedWalk::take(std::size_t vertex) {
    const std::vector<Word>& closure = closures_[vertex];
    for (std::size_t at = 0; at < words_; ++at) {
        met_[at] |= closure[at];
    }
}

/// Leaves the texts that are met in `met_`.
void BudgetedWalk::walk(std::size_t vertex, std::int32_t budget) {
    std::fill(met_.begin(), met_.end(), Word{0});
    frames_.assign(1, {graph_.first(vertex), graph_.end(vertex)});
    --budget;
    while (!frames_.empty()) {
        Frame& frame = frames_.back();
        if (frame.next == frame.end) {
            frames_.pop_back();
            continue;
        }
        const WalkGraph::Step step = graph_.step(frame.next++);
        if (step.text != WalkGraph::kNone) {
            meet(step.text);
        }
        if (step.target == WalkGraph::kNone || budget == 0) {
            continue;
        }
        const auto target = static_cast<std::size_t>(step.target);
        if (isKnown(target) && visits_[target] <= budget) {
            take(target);
            budget -= visits_[target];
        } else {
            --budget;
            frames_.push_back({graph_.first(target), graph_.end(target)});
        }
    }
}

}  // namespace orvent::analysis
