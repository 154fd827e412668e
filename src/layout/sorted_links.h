#pragma once

#include "layout/layered.h"

namespace orvent::layout {

/// The places of the vertices in their rows, and of each vertex the sorted places of its neighbours, so that crossings
/// are counted by merging.
class SortedLinks {
  public:
    SortedLinks(const Layered& graph, Rows rows);

    const Rows& rows() const { return rows_; }
    std::span<const std::int32_t> row(std::size_t layer) const { return rowOf(graph_, rows_, layer); }
    std::int32_t place(std::int32_t vertex) const { return places_[static_cast<std::size_t>(vertex)]; }

    /// Puts a row into another order. The neighbours' lists are as before until they are sorted anew.
    void setRow(std::size_t layer, std::span<const std::int32_t> vertices);
    void sortListsBeside(std::size_t layer);
    void sortAllLists();

    /// How many arcs cross when the one vertex stands above the other, and when it stands below.
    struct Choice {
        std::int64_t above = 0, below = 0;
    };
    Choice choice(std::int32_t one, std::int32_t other) const;
    /// Whether any arcs of the two cross as they stand; quicker than counting them.
    bool cross(std::int32_t upper, std::int32_t lower) const;

    std::int64_t crossings() const;

  private:
    /// Lists as long as those of the graph, filled one number after the other.
    class Lists {
      public:
        Lists(std::size_t vertices, const Neighbours& neighbours);
        std::span<const std::int32_t> of(std::int32_t vertex) const {
            const auto at = static_cast<std::size_t>(vertex);
            return {numbers_.data() + begins_[at], numbers_.data() + begins_[at + 1]};
        }
        void restart(std::size_t first, std::size_t end);
        void put(std::int32_t vertex, std::int32_t number) {
            numbers_[next_[static_cast<std::size_t>(vertex)]++] = number;
        }

      private:
        std::vector<std::uint32_t> begins_, next_;
        std::vector<std::int32_t> numbers_;
    };

    void fillBefore(std::size_t layer);
    void fillBehind(std::size_t layer);
    std::int64_t crossingsBehind(std::size_t layer, std::vector<std::int32_t>& sums) const;

    const Layered& graph_;
    Rows rows_;
    std::vector<std::int32_t> places_;
    Lists before_, behind_;
};

}  // namespace orvent::layout
