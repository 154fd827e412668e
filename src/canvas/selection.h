#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace orvent::canvas {

class Graph;
class LabelsD;
class LinesD;

/// Numbers in order of addition, each once.
class NumberSet {
  public:
    int Count() const { return static_cast<int>(positions_.size()); }
    bool contains(std::int32_t number) const { return positions_.contains(number); }
    bool insert(std::int32_t number);
    bool erase(std::int32_t number);
    void clear();

    /// The members in order, as a copy that may be walked while members go.
    std::vector<std::int32_t> members() const;

  private:
    static constexpr std::int32_t kGone = -1;
    std::vector<std::int32_t> order_;
    std::unordered_map<std::int32_t, std::size_t> positions_;
};

/// The selected nodes of a canvas. Marking is a plain XOR of the node's present colour with `SelColor`.
class SelectedLabelsCollection {
  public:
    explicit SelectedLabelsCollection(Graph& graph) : graph_(graph) {}

    /// Selects the node and gives it; nothing when it was selected already.
    LabelsD* Add(std::int32_t Index);
    void Remove(std::int32_t Index);
    void Clear();
    /// The node when it is selected, or nothing.
    LabelsD* Item(std::int32_t Index) const;
    int Count() const { return numbers_.Count(); }
    std::vector<std::int32_t> members() const { return numbers_.members(); }

    /// Drops a node that is about to go, without recolouring it.
    void forget(std::int32_t Index) { numbers_.erase(Index); }

  private:
    void mark(std::int32_t Index);

    Graph& graph_;
    NumberSet numbers_;
};

/// The selected edges of a canvas.
class SelectedLinesCollection {
  public:
    explicit SelectedLinesCollection(Graph& graph) : graph_(graph) {}

    LinesD* Add(std::int32_t Index);
    void Remove(std::int32_t Index);
    void Clear();
    LinesD* Item(std::int32_t Index) const;
    int Count() const { return numbers_.Count(); }
    std::vector<std::int32_t> members() const { return numbers_.members(); }
    void forget(std::int32_t Index) { numbers_.erase(Index); }

  private:
    Graph& graph_;
    NumberSet numbers_;
};

}  // namespace orvent::canvas
