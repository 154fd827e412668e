#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace orvent::analysis {

/// What a walk along links meets: vertices, each with its steps in order. A step adds a text to the result, visits
/// another vertex, or does both in that order. Vertices are numbered from 0 in the order in which they are added.
class WalkGraph {
  public:
    static constexpr std::int32_t kNone = -1;

    struct Step {
        std::int32_t text;    ///< number of a text, or kNone
        std::int32_t target;  ///< a vertex, or kNone
    };

    /// The number of a text; equal texts have one number.
    std::int32_t text(const std::string& words);
    std::size_t texts() const { return numbers_.size(); }

    /// Begins the next vertex; `add` gives it its steps.
    void begin() { firsts_.push_back(steps_.size()); }
    void add(std::int32_t text, std::int32_t target) { steps_.push_back({text, target}); }

    std::size_t vertices() const { return firsts_.size(); }
    std::size_t first(std::size_t vertex) const { return firsts_[vertex]; }
    std::size_t end(std::size_t vertex) const {
        return vertex + 1 < firsts_.size() ? firsts_[vertex + 1] : steps_.size();
    }
    const Step& step(std::size_t at) const { return steps_[at]; }

  private:
    std::vector<Step> steps_;
    std::vector<std::size_t> firsts_;
    std::unordered_map<std::string, std::int32_t> numbers_;
};

/// Counts the distinct texts that depth-first walks meet when each may visit only so many vertices. A visit costs one,
/// also a second one of the same vertex, and is never given back; where the budget is spent, a step's text still
/// counts and its target is passed over. A cycle is ended by the budget alone.
///
/// What a walk from a vertex costs and meets without a budget is worked out once, so that a walk which the rest of the
/// budget covers is taken as a whole. A walk takes time in its visits and in the distinct texts, never in the copies
/// of results.
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

    std::vector<std::size_t> fromTheEnds() const;
    void measure(std::size_t vertex);
    void walk(std::size_t vertex, std::int32_t budget);
    void take(std::size_t vertex);
    bool isKnown(std::size_t vertex) const { return !closures_[vertex].empty(); }
    void meet(std::int32_t text);

    const WalkGraph& graph_;
    std::size_t words_;
    std::vector<std::int32_t> visits_;         ///< of a walk without a budget; kLargestBudget + 1 for more than that
    std::vector<std::vector<Word>> closures_;  ///< the texts of such a walk, where keeping them pays
    std::vector<Word> met_;
    std::vector<Frame> frames_;
};

}  // namespace orvent::analysis
