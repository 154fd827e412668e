#include "analysis/flow_order.h"

#include <string>
#include <unordered_map>
#include <utility>

#include "platform/fault.h"
#include "platform/steps.h"

namespace orvent::analysis {

void FlowOrder::readGraph(const canvas::DrawForm& Window) {
    vertices_.clear();
    feeders_.clear();
    std::unordered_map<canvas::NodeNumber, std::size_t> places;
    places.reserve(static_cast<std::size_t>(Window.Labels.Count()));
    for (const canvas::LabelsD& node : Window.Labels) {
        places.emplace(node.Index(), places.size());
    }
    for (const canvas::LabelsD& node : Window.Labels) {
        const bool starts = node.EndingLines().Count() >= 2 || node.StartingLines().Count() == 0;
        vertices_.push_back(
            {node.Index(), feeders_.size(), static_cast<std::size_t>(node.EndingLines().Count()), starts});
        for (const canvas::EdgeNumber line : node.EndingLines()) {
            const canvas::LinesD* edge = Window.Lines.byIndex(line);
            const auto from = edge ? places.find(edge->FromLabel()) : places.end();
            if (from == places.end()) {
                throw platform::Fault("An edge that ends at \"" + node.KeyName() + "\" comes from no node");
            }
            feeders_.push_back(from->second);
        }
    }
}

// Each walk goes over all that lies upstream of its starting node: that is what the number means. The walks are kept
// cheap by marking a visited node with the walk's number, so that nothing has to be cleared between them, and by a path
// of their own, since a chain of nodes may be longer than the call stack.
std::int32_t FlowOrder::WalkClosure(std::size_t start) {
    std::int32_t edges = 0;
    ++walk_;
    path_.assign(1, start);
    while (!path_.empty()) {
        Vertex& vertex = vertices_[path_.back()];
        path_.pop_back();
        if (vertex.lastWalk == walk_) {
            continue;
        }
        vertex.lastWalk = walk_;
        edges += static_cast<std::int32_t>(vertex.feederCount);
        for (std::size_t at = 0; at < vertex.feederCount; ++at) {
            const std::size_t feeder = feeders_[vertex.firstFeeder + at];
            if (vertices_[feeder].lastWalk != walk_) {
                path_.push_back(feeder);
            }
        }
    }
    return edges;
}

NodesColl FlowOrder::closuresOfGraph() {
    NodesColl closures;
    walk_ = 0;
    platform::Steps steps(progress_, vertices_.size());
    for (std::size_t at = 0; at < vertices_.size(); ++at) {
        steps.next();
        if (vertices_[at].starts) {
            const canvas::NodeNumber index = vertices_[at].index;
            closures.AddByClosure(index, WalkClosure(at), 0, canvas::textOf(index));
        }
    }
    return closures;
}

NodesColl FlowOrder::ComputeClosures(const canvas::DrawForm& Window) {
    readGraph(Window);
    return closuresOfGraph();
}

void FlowOrder::addToFlow(const Vertex& vertex, std::int32_t transClosure) {
    ++flowCounter_;
    flow_.AddByFlowID(vertex.index, transClosure, flowCounter_, canvas::textOf(vertex.index));
}

// Goes up the first edges and lists the nodes on the way back, so that what lies upstream gets the lower number.
void FlowOrder::WalkFlow(std::size_t start) {
    path_.clear();
    std::size_t at = start;
    while (!vertices_[at].listed) {
        vertices_[at].listed = true;
        path_.push_back(at);
        if (vertices_[at].feederCount > 0) {
            at = feeders_[vertices_[at].firstFeeder];
        }
    }
    for (; !path_.empty(); path_.pop_back()) {
        addToFlow(vertices_[path_.back()], 0);
    }
}

NodesColl FlowOrder::ComputeFlowIDs(const canvas::DrawForm& Window) {
    const NodesColl closures = ComputeClosures(Window);
    flow_ = NodesColl();
    flowCounter_ = 0;
    std::unordered_map<canvas::NodeNumber, std::size_t> startingPlaces;
    for (std::size_t at = 0; at < vertices_.size(); ++at) {
        if (vertices_[at].starts) {
            vertices_[at].listed = true;
            startingPlaces.emplace(vertices_[at].index, at);
        }
    }
    for (const NodesData& entry : closures) {
        const Vertex& vertex = vertices_[startingPlaces.at(entry.Index)];
        for (std::size_t at = 0; at < vertex.feederCount; ++at) {
            WalkFlow(feeders_[vertex.firstFeeder + at]);
        }
        addToFlow(vertex, entry.TransClosure);
    }
    return std::move(flow_);
}

}  // namespace orvent::analysis
