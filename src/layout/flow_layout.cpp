#include "layout/flow_layout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "layout/heights.h"
#include "layout/layers.h"
#include "layout/rows.h"

namespace orvent::layout {

namespace {

/// A node that stands by itself, with those that stay below it.
struct Stack {
    std::vector<std::int32_t> nodes;
    Size size;
    double centre = 0;  ///< where its arcs meet it, from the top
};

/// What arcs join, with the corner of each of its stacks.
struct Part {
    std::vector<std::int32_t> stacks;
    std::vector<Arc> arcs;  ///< between places in `stacks`
    std::vector<Place> places;
    Size size;
    Place corner;
};

class FlowLayout {
  public:
    FlowLayout(const FlowGraph& graph, const Spacing& spacing) : graph_(graph), spacing_(spacing) {}

    std::vector<Place> run() {
        makeStacks();
        makeParts();
        for (Part& part : parts_) {
            layOutPart(part);
        }
        pack();
        std::vector<Place> places(graph_.nodes.size());
        for (const Part& part : parts_) {
            for (std::size_t at = 0; at < part.stacks.size(); ++at) {
                const Place corner = part.places[at];
                Place place{part.corner.left + corner.left, part.corner.top + corner.top};
                for (const std::int32_t node : stack(part.stacks[at]).nodes) {
                    places[static_cast<std::size_t>(node)] = place;
                    place.top = onGrid(place.top + size(node).height + spacing_.besideNode);
                }
            }
        }
        return places;
    }

  private:
    const Size& size(std::int32_t node) const { return graph_.nodes[static_cast<std::size_t>(node)]; }
    const Stack& stack(std::int32_t number) const { return stacks_[static_cast<std::size_t>(number)]; }

    /// The next line of the grid.
    double onGrid(double value) const { return std::ceil(value / spacing_.grid - 1e-6) * spacing_.grid; }

    void makeStacks();
    void makeParts();
    void layOutPart(Part& part) const;
    void pack();

    const FlowGraph& graph_;
    const Spacing spacing_;
    std::vector<Stack> stacks_;
    std::vector<std::int32_t> stackOf_;
    std::vector<Part> parts_;
};

void FlowLayout::makeStacks() {
    const auto count = static_cast<std::int32_t>(graph_.nodes.size());
    const auto host = [&](std::int32_t node) {
        const auto at = static_cast<std::size_t>(node);
        return at < graph_.besides.size() && graph_.besides[at] >= 0 ? graph_.besides[at] : node;
    };
    std::vector<Arc> ties;
    for (std::int32_t node = 0; node < count; ++node) {
        if (host(node) != node) {
            ties.push_back({host(node), node});
        }
    }
    stackOf_ = partsOf(graph_.nodes.size(), ties);
    stacks_.resize(stackOf_.empty() ? 0 : static_cast<std::size_t>(*std::ranges::max_element(stackOf_)) + 1);
    for (const bool standsAlone : {true, false}) {
        for (std::int32_t node = 0; node < count; ++node) {
            if ((host(node) == node) == standsAlone) {
                stacks_[static_cast<std::size_t>(stackOf_[static_cast<std::size_t>(node)])].nodes.push_back(node);
            }
        }
    }
    for (Stack& stack : stacks_) {
        for (const std::int32_t node : stack.nodes) {
            const double top = stack.size.height > 0 ? onGrid(stack.size.height + spacing_.besideNode) : 0;
            stack.size = {std::max(stack.size.width, size(node).width), top + size(node).height};
        }
        stack.centre = size(stack.nodes.front()).height / 2;
    }
}

void FlowLayout::makeParts() {
    std::vector<Arc> arcs;
    for (const Arc& arc : graph_.arcs) {
        const Arc between{stackOf_[static_cast<std::size_t>(arc.from)], stackOf_[static_cast<std::size_t>(arc.to)]};
        if (between.from != between.to) {
            arcs.push_back(between);
        }
    }
    const std::vector<std::int32_t> partOf = partsOf(stacks_.size(), arcs);
    parts_.resize(partOf.empty() ? 0 : static_cast<std::size_t>(*std::ranges::max_element(partOf)) + 1);
    std::vector<std::int32_t> within(stacks_.size());
    for (std::size_t at = 0; at < stacks_.size(); ++at) {
        std::vector<std::int32_t>& stacks = parts_[static_cast<std::size_t>(partOf[at])].stacks;
        within[at] = static_cast<std::int32_t>(stacks.size());
        stacks.push_back(static_cast<std::int32_t>(at));
    }
    for (const Arc& arc : arcs) {
        const auto from = static_cast<std::size_t>(arc.from), to = static_cast<std::size_t>(arc.to);
        parts_[static_cast<std::size_t>(partOf[from])].arcs.push_back({within[from], within[to]});
    }
}

void FlowLayout::layOutPart(Part& part) const {
    const std::vector<std::int32_t> order = flowOrder(part.stacks.size(), part.arcs);
    const std::vector<Arc> arcs = alongOrder(order, part.arcs);
    const Layered graph = withWaypoints(layersOf(order, arcs), arcs);
    const Rows rows = rowsOf(graph);
    std::vector<Extent> extents;
    for (const std::int32_t number : part.stacks) {
        // Whole steps of the grid, so that what is level stays level on it.
        const Stack& each = stack(number);
        const double height = onGrid(each.size.height + spacing_.betweenNodes) - spacing_.betweenNodes;
        extents.push_back({each.centre, height - each.centre});
    }
    const std::vector<double> heights = heightsOf(graph, rows, extents, spacing_.betweenNodes);
    part.places.resize(part.stacks.size());
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t vertex = 0; vertex < graph.nodes.size(); ++vertex) {
        if (const std::int32_t node = graph.nodes[vertex]; node >= 0) {
            least = std::min(least, heights[vertex] - extents[static_cast<std::size_t>(node)].above);
        }
    }
    double left = 0;
    for (std::size_t layer = 0; layer < graph.layers(); ++layer) {
        double width = 0;
        for (const std::int32_t vertex : rowOf(graph, rows, layer)) {
            if (graph.isWaypoint(vertex)) {
                continue;
            }
            const auto at = static_cast<std::size_t>(graph.node(vertex));
            const double wished = heights[static_cast<std::size_t>(vertex)] - extents[at].above - least;
            // The least distances are whole steps of the grid, so rounding brings no boxes together.
            const double top = std::round(wished / spacing_.grid) * spacing_.grid;
            const Size& box = stack(part.stacks[at]).size;
            part.places[at] = {left, top};
            part.size = {std::max(part.size.width, left + box.width), std::max(part.size.height, top + box.height)};
            width = std::max(width, box.width);
        }
        left = onGrid(left + width + spacing_.betweenLayers);
    }
}

/// Puts the parts in rows, the tallest first, about as wide in all as a screen is to its height.
void FlowLayout::pack() {
    constexpr double kShape = 1.6;
    double area = 0, widest = 0;
    std::vector<std::size_t> order(parts_.size());
    std::iota(order.begin(), order.end(), 0);
    for (const Part& part : parts_) {
        area += (part.size.width + spacing_.betweenParts) * (part.size.height + spacing_.betweenParts);
        widest = std::max(widest, part.size.width);
    }
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return parts_[a].size.height > parts_[b].size.height; });
    const double end = std::max(widest, std::sqrt(area * kShape));
    double left = 0, top = 0, tallest = 0;
    for (const std::size_t at : order) {
        Part& part = parts_[at];
        if (left > 0 && left + part.size.width > end) {
            top = onGrid(top + tallest + spacing_.betweenParts);
            left = tallest = 0;
        }
        part.corner = {left, top};
        left = onGrid(left + part.size.width + spacing_.betweenParts);
        tallest = std::max(tallest, part.size.height);
    }
}

}  // namespace

std::vector<Place> layOut(const FlowGraph& graph, const Spacing& spacing) {
    return FlowLayout(graph, spacing).run();
}

}  // namespace orvent::layout
