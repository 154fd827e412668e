#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "canvas/numbers.h"

namespace orvent::canvas {

class Graph;
class LabelsD;
class LinesD;

/// Numbers of nodes or of edges in order of addition, each once.
template <class Number>
class NumberSet {
  public:
    int Count() const { return static_cast<int>(positions_.size()); }
    bool contains(Number number) const { return positions_.contains(number); }
    bool insert(Number number);
    bool erase(Number number);
    void clear();

    /// The members in order, as a copy that may be walked while members go.
    std::vector<Number> members() const;

  private:
    static constexpr Number kGone{-1};
    std::vector<Number> order_;
    std::unordered_map<Number, std::size_t> positions_;
};

/// The selected nodes of a canvas. Marking is a plain XOR of the node's present colour with `SelColor`.
class SelectedLabelsCollection {
  public:
    explicit SelectedLabelsCollection(Graph& graph) : graph_(graph) {}

    /// Selects the node and gives it; nothing when it was selected already.
    LabelsD* Add(NodeNumber Index);
    void Remove(NodeNumber Index);
    void Clear();
    /// The node when it is selected, or nothing.
    LabelsD* Item(NodeNumber Index) const;
    int Count() const { return numbers_.Count(); }
    std::vector<NodeNumber> members() const { return numbers_.members(); }

    /// Drops a node that is about to go, without recolouring it.
    void forget(NodeNumber Index) { numbers_.erase(Index); }

  private:
    void mark(NodeNumber Index);

    Graph& graph_;
    NumberSet<NodeNumber> numbers_;
};

/// The selected edges of a canvas.
class SelectedLinesCollection {
  public:
    explicit SelectedLinesCollection(Graph& graph) : graph_(graph) {}

    LinesD* Add(EdgeNumber Index);
    void Remove(EdgeNumber Index);
    void Clear();
    LinesD* Item(EdgeNumber Index) const;
    int Count() const { return numbers_.Count(); }
    std::vector<EdgeNumber> members() const { return numbers_.members(); }
    void forget(EdgeNumber Index) { numbers_.erase(Index); }

  private:
    Graph& graph_;
    NumberSet<EdgeNumber> numbers_;
};

}  // namespace orvent::canvas
