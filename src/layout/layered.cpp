#include "layout/layered.h"

#include <algorithm>
#include <numeric>

namespace orvent::layout {

namespace {

constexpr std::int64_t kWaypointsEach = 6;  // for each node and arc

/// The number of waypoints that an arc may have.
std::int32_t mostWaypoints(const std::vector<std::int32_t>& layers, const std::vector<Arc>& arcs) {
    std::vector<std::int64_t> counts;  // of arcs by the number of waypoints that they would have
    for (const Arc& arc : arcs) {
        const auto waypoints = static_cast<std::size_t>(layers[static_cast<std::size_t>(arc.to)] -
                                                        layers[static_cast<std::size_t>(arc.from)] - 1);
        counts.resize(std::max(counts.size(), waypoints + 1));
        ++counts[waypoints];
    }
    auto longer = static_cast<std::int64_t>(arcs.size());
    std::int64_t budget = kWaypointsEach * static_cast<std::int64_t>(layers.size() + arcs.size());
    std::size_t most = 0;
    for (; most < counts.size(); ++most) {
        longer -= counts[most];
        budget -= longer;
        if (budget < 0) {
            break;
        }
    }
    return static_cast<std::int32_t>(std::max<std::size_t>(most, 2));
}

/// Numbers vertices layer by layer, and keeps their order within each.
Layered arranged(const std::vector<std::int32_t>& layers, std::size_t nodes, std::vector<Arc> arcs) {
    Layered graph;
    const auto last = std::max_element(layers.begin(), layers.end());
    graph.begins.resize(last == layers.end() ? 1 : static_cast<std::size_t>(*last) + 2);
    for (const std::int32_t layer : layers) {
        ++graph.begins[static_cast<std::size_t>(layer) + 1];
    }
    std::partial_sum(graph.begins.begin(), graph.begins.end(), graph.begins.begin());
    std::vector<std::size_t> next = graph.begins;
    std::vector<std::int32_t> number(layers.size());
    graph.nodes.resize(layers.size());
    for (std::size_t at = 0; at < layers.size(); ++at) {
        const std::size_t vertex = next[static_cast<std::size_t>(layers[at])]++;
        number[at] = static_cast<std::int32_t>(vertex);
        graph.nodes[vertex] = at < nodes ? static_cast<std::int32_t>(at) : -1;
    }
    for (Arc& arc : arcs) {
        arc = {number[static_cast<std::size_t>(arc.from)], number[static_cast<std::size_t>(arc.to)]};
    }
    graph.before = Neighbours(layers.size(), arcs, Neighbours::Side::before);
    graph.behind = Neighbours(layers.size(), arcs, Neighbours::Side::behind);
    return graph;
}

}  // namespace

Layered withWaypoints(const std::vector<std::int32_t>& layers, const std::vector<Arc>& arcs) {
    const std::int32_t half = mostWaypoints(layers, arcs) / 2;
    std::vector<std::int32_t> all = layers;
    std::vector<Arc> steps;
    for (const Arc& arc : arcs) {
        const std::int32_t first = layers[static_cast<std::size_t>(arc.from)] + 1;
        const std::int32_t last = layers[static_cast<std::size_t>(arc.to)] - 1;
        std::int32_t vertex = arc.from;
        for (std::int32_t layer = first; layer <= last; ++layer) {
            const auto waypoint = static_cast<std::int32_t>(all.size());
            if (layer == first + half && last - first + 1 > 2 * half) {
                layer = last - half + 1;  // nothing in between
            } else {
                steps.push_back({vertex, waypoint});
            }
            all.push_back(layer);
            vertex = waypoint;
        }
        steps.push_back({vertex, arc.to});
    }
    return arranged(all, layers.size(), std::move(steps));
}

}  // namespace orvent::layout
