#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "zoom/edge_strokes.h"

namespace orvent::zoom {

/// What is expanded of a view, and where it stands: taken before nodes are collapsed for a while, and given back when
/// they are expanded again.
class ExpandedState {
  public:
    explicit ExpandedState(const ZoomView& view);

    /// Expands what was expanded, puts every node back to its place and leads edges as a hand had led them.
    void restore(ZoomView& view) const;

  private:
    struct Place {
        std::size_t nameEnd;  ///< in `names_`
        canvas::Box box;
        std::int32_t color;
        bool ready;

        void restore(canvas::LabelsD& node) const;
    };

    EdgeStrokes strokes_;
    std::set<canvas::NodeNumber> expanded_;
    std::set<std::string> expandedNames_;
    std::string names_;  ///< of the nodes of the places, one behind the other; their numbers may be other ones later
    std::vector<Place> places_;
};

/// Collapses an activity, a record set or a function. Its members keep the order that they had before it was collapsed
/// by hand.
void CollapseForAWhile(ZoomView& view, canvas::LabelsD& node);

}  // namespace orvent::zoom
