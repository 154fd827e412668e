#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/nodes_coll.h"
#include "canvas/draw_form.h"
#include "platform/dialogs.h"

namespace orvent::analysis {

/// Puts the nodes of a scenario in an order that follows the edges of its graph. Nodes of any kind and edges of any
/// kind take part. A cycle that leads to no starting node is left out.
class FlowOrder {
  public:
    explicit FlowOrder(platform::Progress& progress) : progress_(progress) {}

    /// The starting nodes of the walks - those where flows join or end - with the number of edges upstream of each.
    NodesColl ComputeClosures(const canvas::DrawForm& Window);

    /// All nodes that the walks reach, the most downstream one first.
    NodesColl ComputeFlowIDs(const canvas::DrawForm& Window);

  private:
    /// A node as the walks need it.
    struct Vertex {
        canvas::NodeNumber index;    ///< the node's `Index`
        std::size_t firstFeeder;     ///< its feeders stand in `feeders_`, from here
        std::size_t feederCount;     ///< one for each edge that ends at it, in order
        bool starts;                 ///< a starting node
        bool listed = false;         ///< in one of the lists, or being walked for the flow list
        std::uint32_t lastWalk = 0;  ///< number of the last closure walk that met it
    };

    void readGraph(const canvas::DrawForm& Window);
    NodesColl closuresOfGraph();
    std::int32_t WalkClosure(std::size_t vertex);
    void WalkFlow(std::size_t vertex);
    void addToFlow(const Vertex& vertex, std::int32_t transClosure);

    platform::Progress& progress_;
    std::vector<Vertex> vertices_;
    std::vector<std::size_t> feeders_;  ///< positions in `vertices_`
    std::vector<std::size_t> path_;     ///< the nodes that a walk has still to deal with
    std::uint32_t walk_ = 0;
    std::int32_t flowCounter_ = 0;
    NodesColl flow_;
};

}  // namespace orvent::analysis
