#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "canvas/canvas.h"

namespace orvent::canvas {

/// How nodes and edges stood that are about to be moved.
class FormerPlaces {
  public:
    FormerPlaces() = default;
    /// Nodes with all their edges.
    FormerPlaces(const Canvas& canvas, const std::vector<NodeNumber>& nodes);

    /// Brings those that still exist back, all at once.
    void putBack(Canvas& canvas) const;

  private:
    struct Edge {
        EdgeNumber index;
        std::int16_t from, to;  ///< grab points
        AngleCode angle;
        Point middle;
        bool middlePlaced;
    };
    std::vector<std::pair<NodeNumber, Box>> nodes_;
    std::vector<Edge> edges_;
};

/// The way back to former places, open until something changes.
class PutBack : private CanvasListener {
  public:
    /// `closed` is called once, at the first change.
    PutBack(Canvas& canvas, FormerPlaces places, std::function<void()> closed);

    bool isOpen() const { return canvas_.changes() == changes_; }
    void run() const { places_.putBack(canvas_); }

  private:
    void nodeChanged(const LabelsD&) override { look(); }
    void nodeRemoved(const LabelsD&) override { look(); }
    void edgeChanged(const LinesD&) override { look(); }
    void edgeRemoved(const LinesD&) override { look(); }
    void manyChanged() override { look(); }
    void look();

    Canvas& canvas_;
    FormerPlaces places_;
    std::function<void()> closed_;
    std::uint64_t changes_;
    bool told_ = false;
    CanvasSubscription subscription_;
};

/// The nodes that tidying up means: the selected ones, or all that are visible when fewer than two are selected.
std::vector<NodeNumber> nodesToTidy(const Canvas& canvas);

/// Places nodes by the flow from left to right, all at once, and leads their edges by the straight way. Comments and
/// logs stay with the node that an edge joins them with, or else with the nearest one. With `all` the nodes begin at
/// the corner of the picture; otherwise they keep the corner that they have together.
void tidyUp(Canvas& canvas, const std::vector<NodeNumber>& nodes, bool all);

}  // namespace orvent::canvas
