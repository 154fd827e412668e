#pragma once

#include <optional>
#include <vector>

#include "canvas/canvas.h"
#include "qt/canvas/grid_index.h"

namespace orvent::qt {

/// Where the nodes and edges of a canvas lie, for one view: what meets an area, and what is topmost at a place. It is
/// built at its first use and kept up to date change by change; where much changes at once it is dropped and built
/// anew.
class PictureIndex {
  public:
    /// The canvas outlives its index.
    explicit PictureIndex(const canvas::Canvas& canvas) : canvas_(canvas) {}

    /// Builds the index unless it stands.
    void ensure() const;
    /// Drops it, with all that it remembers of items.
    void drop();
    bool stands() const { return !stale_; }
    /// So many slots are empty that building it anew pays.
    bool isWorn() const { return nodes_.isWorn() || edges_.isWorn(); }

    /// Counts one change. False when the index does not stand, or when so much has changed that it should not any more:
    /// then the caller drops it.
    bool takesChange();
    /// What was counted is on screen.
    void countAnew() { changes_ = 0; }

    // Enters an item or moves it, and takes it out; they give the extent that it had before.
    std::optional<Extent> put(const canvas::LabelsD& node) { return nodes_.put(node, extentOf(node)); }
    std::optional<Extent> put(const canvas::LinesD& edge) { return edges_.put(edge, extentOf(edge)); }
    std::optional<Extent> remove(const canvas::LabelsD& node) { return nodes_.remove(node); }
    std::optional<Extent> remove(const canvas::LinesD& edge) { return edges_.remove(edge); }

    /// Around all that is in it; nothing when that is nothing.
    std::optional<Extent> bounds() const;
    std::size_t count() const { return nodes_.count() + edges_.count(); }

    // What meets an area, from the lowest to the topmost. The result holds until the next call.
    const std::vector<const canvas::LabelsD*>& nodesIn(const Extent& area) const { return nodes_.at(area); }
    const std::vector<const canvas::LinesD*>& edgesIn(const Extent& area) const { return edges_.at(area); }

    /// The topmost node at a place, or nothing.
    const canvas::LabelsD* nodeAt(canvas::Point place) const;

    struct EdgeHit {
        canvas::HandleNumber handle{};  ///< 0 for none
        canvas::EdgeNumber line{};      ///< the edge whose line passes nearest, 0 for none
    };
    /// The handle at a place, or else the line within reach; twips, 0 leaves lines aside.
    EdgeHit edgeAt(canvas::Point place, float handleReach, float lineReach) const;

  private:
    const canvas::Canvas& canvas_;
    mutable ItemIndex<canvas::LabelsD> nodes_;
    mutable ItemIndex<canvas::LinesD> edges_;
    mutable bool stale_ = true;
    std::size_t changes_ = 0;  ///< since the last painting
};

}  // namespace orvent::qt
