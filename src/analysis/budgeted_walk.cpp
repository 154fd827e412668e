#include "analysis/budgeted_walk.h"

#include <algorithm>
#include <bit>

namespace orvent::analysis {

namespace {

constexpr std::int32_t kTooMany = BudgetedWalk::kLargestBudget + 1;
// Of a vertex that leads into a cycle.
constexpr std::int32_t kEndless = kTooMany + 1;
// A shorter walk is quicker walked than looked up.
constexpr std::int32_t kShort = 64;
constexpr std::size_t kWordBits = 64;

}  // namespace

BudgetedWalk::BudgetedWalk(const WalkGraph& graph)
    : graph_(graph),
      visits_(graph.vertices(), kEndless),
      closures_(graph.vertices()),
      entered_(graph.vertices()),
      met_((graph.texts() + kWordBits - 1) / kWordBits) {
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
        closures_[vertex] = result();
    }
}

std::int32_t BudgetedWalk::count(std::size_t vertex, std::int32_t budget) {
    if (budget <= 0) {
        return 0;
    }
    if (isKnown(vertex) && visits_[vertex] <= budget) {
        return closures_[vertex].count;
    }
    walk(vertex, budget);
    if (tookWhole_) {
        return result().count;
    }
    for (const std::int32_t text : texts_) {
        met_[static_cast<std::size_t>(text) / kWordBits] = 0;
    }
    return static_cast<std::int32_t>(texts_.size());
}

void BudgetedWalk::meet(std::int32_t text) {
    Word& word = met_[static_cast<std::size_t>(text) / kWordBits];
    const Word bit = Word{1} << (static_cast<std::size_t>(text) % kWordBits);
    if ((word & bit) == 0) {
        word |= bit;
        texts_.push_back(text);
    }
}

void BudgetedWalk::take(const Closure& closure) {
    for (std::size_t at = 0; at < closure.words.size(); ++at) {
        met_[closure.from + at] |= closure.words[at];
    }
    from_ = std::min(from_, closure.from);
    to_ = std::max(to_, closure.from + closure.words.size());
    tookWhole_ = true;
}

/// What was met, and leaves nothing of it behind.
BudgetedWalk::Closure BudgetedWalk::result() {
    for (const std::int32_t text : texts_) {
        const std::size_t word = static_cast<std::size_t>(text) / kWordBits;
        from_ = std::min(from_, word);
        to_ = std::max(to_, word + 1);
    }
    const auto first = met_.begin() + static_cast<std::ptrdiff_t>(from_);
    const auto last = met_.begin() + static_cast<std::ptrdiff_t>(to_);
    Closure closure{from_, {first, last}};
    for (const Word word : closure.words) {
        closure.count += std::popcount(word);
    }
    std::fill(first, last, Word{0});
    return closure;
}

/// Leaves what is met in `texts_` and `met_`.
void BudgetedWalk::walk(std::size_t vertex, std::int32_t budget) {
    texts_.clear();
    tookWhole_ = false;
    from_ = met_.size();
    to_ = 0;
    enter(vertex, budget);
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
            take(closures_[target]);
            budget -= visits_[target];
        } else {
            enter(target, budget);
        }
    }
    for (const std::size_t each : endless_) {
        entered_[each] = 0;
    }
    endless_.clear();
}

/// Pays for a visit and begins it. A vertex without an end that is met again begins another round of what it has met
/// once: all that is left of the budget goes there, and finds nothing new.
void BudgetedWalk::enter(std::size_t vertex, std::int32_t& budget) {
    if (visits_[vertex] == kEndless) {
        if (entered_[vertex]) {
            budget = 0;
            return;
        }
        entered_[vertex] = 1;
        endless_.push_back(vertex);
    }
    --budget;
    frames_.push_back({graph_.first(vertex), graph_.end(vertex)});
}

}  // namespace orvent::analysis
