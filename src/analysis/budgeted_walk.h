#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvent::analysis {

/// What a walk along links meets: vertices, each with its steps in order. A step adds a text to the result, visits
/// another vertex, or does both in that order. Vertices are numbered from 0 in the order in which they are added.
class WalkGraph {
  public:
    static constexpr std::int32_t kNone = -1;

    struct Step {
        std::int32_t text = kNone;    ///< the number of a text from 0 on, equal texts have one; or kNone
        std::int32_t target = kNone;  ///< a vertex, or kNone
    };

    /// Begins the next vertex; `add` gives it its steps.
    void begin() { firsts_.push_back(steps_.size()); }
    void add(std::int32_t text, std::int32_t target) {
        steps_.push_back({text, target});
        texts_ = std::max(texts_, static_cast<std::size_t>(text + 1));
    }

    /// The numbers of its texts are below that.
    std::size_t texts() const { return texts_; }

    std::size_t vertices() const { return firsts_.size(); }
    std::size_t first(std::size_t vertex) const { return firsts_[vertex]; }
    std::size_t end(std::size_t vertex) const {
        return vertex + 1 < firsts_.size() ? firsts_[vertex + 1] : steps_.size();
    }
    const Step& step(std::size_t at) const { return steps_[at]; }

  private:
    std::vector<Step> steps_;
    std::vector<std::size_t> firsts_;
    std::size_t texts_ = 0;
};

/// Counts the distinct texts that depth-first walks meet when each may visit only so many vertices. A visit costs one,
/// also a second one of the same vertex, and is never given back; where the budget is spent, a step's text still
/// counts and its target is passed over. A cycle is ended by the budget alone.
///
/// What a walk from a vertex costs and meets without a budget is worked out once, so that a walk which the rest of the
/// budget covers is taken as a whole. A walk that comes into a cycle never leaves it, since each round begins as the
/// one before: all rounds but the first and the part of a round that the budget still pays are passed over. So a walk
/// takes time in the distinct texts and in visits that teach something new, never in copies of results.
class BudgetedWalk {
  public:
    /// The largest budget that `count` can be given.
    static constexpr std::int32_t kLargestBudget = 32767;

    /// The graph outlives the walks.
    explicit BudgetedWalk(const WalkGraph& graph);

    /// The number of distinct texts of the walk that begins at the vertex. A budget below 0 counts as 0.
    std::int32_t count(std::size_t vertex, std::int32_t budget);

  private:
    using Word = std::uint64_t;
    struct Frame {
        std::size_t next, end;  ///< steps still to take
    };
    /// A set of texts: the words from the first to the last that is not 0.
    struct Closure {
        std::size_t from = 0;
        std::vector<Word> words;
        std::int32_t count = 0;
    };

    std::vector<std::size_t> fromTheEnds() const;
    void measure(std::size_t vertex);
    void walk(std::size_t vertex, std::int32_t budget);
    void enter(std::size_t vertex, std::int32_t& budget);
    void take(const Closure& closure);
    void meet(std::int32_t text);
    Closure result();
    bool isKnown(std::size_t vertex) const { return closures_[vertex].count > 0; }

    const WalkGraph& graph_;
    std::vector<std::int32_t> visits_;  ///< of a walk without a budget; above kLargestBudget they are not counted
    std::vector<Closure> closures_;     ///< the texts of such a walk, where keeping them pays
    std::vector<char> entered_;         ///< of the vertices without an end: by the walk under way

    // The walk under way.
    std::vector<Frame> frames_;
    std::vector<std::size_t> endless_;  ///< those of `entered_`
    std::vector<Word> met_;             ///< all 0 between walks
    std::vector<std::int32_t> texts_;   ///< those that were met one by one
    bool tookWhole_ = false;            ///< closures were taken, so that there is more than `texts_`
    std::size_t from_ = 0, to_ = 0;     ///< their words
};

}  // namespace orvent::analysis
