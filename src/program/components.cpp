#include "program/components.h"

#include <algorithm>
#include <cstddef>

namespace orvent::program {

namespace {

std::size_t place(int number) {
    return static_cast<std::size_t>(number);
}

}  // namespace

std::vector<int> componentsOf(const Graph& graph) {
    struct Step {
        int vertex;
        std::size_t next;
    };
    std::vector<int> component(graph.size(), -1), order(graph.size(), -1), lowest(graph.size(), 0), open;
    std::vector<Step> way;
    int met = 0;
    int components = 0;
    const auto enter = [&](int vertex) {
        order[place(vertex)] = lowest[place(vertex)] = met++;
        open.push_back(vertex);
        way.push_back({vertex, 0});
    };
    for (int start = 0; place(start) < graph.size(); ++start) {
        if (order[place(start)] >= 0) {
            continue;
        }
        enter(start);
        while (!way.empty()) {
            const int vertex = way.back().vertex;
            int& low = lowest[place(vertex)];
            if (way.back().next < graph[place(vertex)].size()) {
                const int target = graph[place(vertex)][way.back().next++];
                if (order[place(target)] < 0) {
                    enter(target);
                } else if (component[place(target)] < 0) {
                    low = std::min(low, order[place(target)]);
                }
                continue;
            }
            if (low == order[place(vertex)]) {
                for (int last = -1; last != vertex; open.pop_back()) {
                    last = open.back();
                    component[place(last)] = components;
                }
                ++components;
            }
            way.pop_back();
            if (!way.empty()) {
                int& before = lowest[place(way.back().vertex)];
                before = std::min(before, low);
            }
        }
    }
    return component;
}

std::vector<int> circleThrough(const Graph& graph, int vertex) {
    std::vector<int> from(graph.size(), -1), round = {vertex};
    for (std::size_t at = 0; at < round.size(); ++at) {
        for (const int target : graph[place(round[at])]) {
            if (target == vertex) {
                std::vector<int> way = {vertex};
                for (int back = round[at]; back != vertex; back = from[place(back)]) {
                    way.push_back(back);
                }
                way.push_back(vertex);
                std::reverse(way.begin(), way.end());
                return way;
            }
            if (from[place(target)] < 0) {
                from[place(target)] = round[at];
                round.push_back(target);
            }
        }
    }
    return {};
}

}  // namespace orvent::program
