#include "layout/flow_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numeric>
#include <random>

#include "layout/layers.h"
#include "layout/nearest_box.h"
#include "layout/rows.h"
#include "layout/sorted_links.h"

namespace orvent::layout {
namespace {

constexpr int kMany = 30000;

std::size_t at(std::int32_t number) {
    return static_cast<std::size_t>(number);
}

/// Boxes of the usual sizes, arcs anywhere (with loops, doubles and circles, or without), some nodes that stay beside
/// others.
FlowGraph anyGraph(unsigned seed, bool circles) {
    std::mt19937 random(seed);
    const auto below = [&random](unsigned end) { return static_cast<std::int32_t>(random() % end); };
    const auto nodes = seed < 5 ? seed : 1U + static_cast<unsigned>(random() % 120);
    FlowGraph graph;
    for (unsigned node = 0; node < nodes; ++node) {
        graph.nodes.push_back({300.0 + 100 * below(12), 152.0 + below(700)});
        const bool beside = below(6) == 0;
        graph.besides.push_back(beside ? below(nodes) : -1);
    }
    for (auto made = nodes == 0 ? 0 : below(2 * nodes); made > 0; --made) {
        const std::int32_t a = below(nodes), b = below(nodes);
        if (circles || a != b) {
            graph.arcs.push_back(circles ? Arc{a, b} : Arc{std::min(a, b), std::max(a, b)});
        }
    }
    return graph;
}

FlowGraph plain(int nodes, const std::vector<Arc>& arcs) {
    return {std::vector<Size>(static_cast<std::size_t>(nodes), Size{1050, 450}), arcs, {}};
}

/// The first pair of boxes that touch, as text; empty when there is none.
std::string touching(const FlowGraph& graph, const std::vector<Place>& places) {
    constexpr double kCell = 2000;
    std::map<std::pair<long, long>, std::vector<std::size_t>> cells;
    for (std::size_t node = 0; node < places.size(); ++node) {
        const Place from = places[node];
        const Place to{from.left + graph.nodes[node].width, from.top + graph.nodes[node].height};
        for (auto x = std::lround(std::floor(from.left / kCell)); x <= std::lround(std::floor(to.left / kCell)); ++x) {
            for (auto y = std::lround(std::floor(from.top / kCell)); y <= std::lround(std::floor(to.top / kCell));
                 ++y) {
                for (const std::size_t other : cells[{x, y}]) {
                    const Place there = places[other];
                    if (there.left <= to.left && from.left <= there.left + graph.nodes[other].width &&
                        there.top <= to.top && from.top <= there.top + graph.nodes[other].height) {
                        return std::to_string(other) + " and " + std::to_string(node);
                    }
                }
                cells[{x, y}].push_back(node);
            }
        }
    }
    return {};
}

void expectInOrder(const FlowGraph& graph, bool acyclic) {
    const std::vector<Place> places = layOut(graph);
    ASSERT_EQ(places.size(), graph.nodes.size());
    EXPECT_EQ(touching(graph, places), "");
    for (const Place& place : places) {
        ASSERT_TRUE(place.left >= 0 && place.top >= 0 && std::fmod(place.left, 100) == 0 &&
                    std::fmod(place.top, 100) == 0)
            << place.left << " " << place.top;
    }
    for (const Arc& arc : acyclic ? graph.arcs : std::vector<Arc>()) {
        ASSERT_GE(places[at(arc.to)].left, places[at(arc.from)].left + graph.nodes[at(arc.from)].width)
            << arc.from << " -> " << arc.to;
    }
}

TEST(FlowLayout, KeepsItsPromisesForAnyGraph) {
    for (unsigned seed = 0; seed < 150; ++seed) {
        SCOPED_TRACE(seed);
        expectInOrder(anyGraph(seed, true), false);
        EXPECT_EQ(layOut(anyGraph(seed, true)), layOut(anyGraph(seed, true)));
        FlowGraph flow = anyGraph(seed, false);
        flow.besides.clear();
        expectInOrder(flow, true);
    }
}

TEST(FlowLayout, HoldsOutLargeGraphs) {
    std::vector<Arc> chain, star, longArcs;
    for (std::int32_t node = 1; node < kMany; ++node) {
        chain.push_back({node - 1, node});
        star.push_back({0, node});
        longArcs.push_back({node - 1, node});
        if (node % 2 == 0) {
            longArcs.push_back({node / 2 - 1, kMany - node / 2});
        }
    }
    for (const std::vector<Arc>& arcs : {std::vector<Arc>(), chain, star, longArcs}) {
        expectInOrder(plain(kMany, arcs), true);
    }
    std::vector<Arc> circle = chain;
    circle.push_back({kMany - 1, 0});
    const std::vector<Place> places = layOut(plain(kMany, circle));
    EXPECT_EQ(std::ranges::count_if(
                  circle, [&](const Arc& arc) { return places[at(arc.to)].left < places[at(arc.from)].left; }),
              1);
}

TEST(FlowLayout, KeepsNotesBelowTheirNodes) {
    FlowGraph graph = plain(6, {{0, 1}, {1, 2}});
    graph.besides = {-1, -1, -1, 1, 3, 5};  // 4 stays by way of 3, and 5 beside itself is a part of its own
    const std::vector<Place> places = layOut(graph);
    EXPECT_EQ(places[0].top, places[2].top);
    EXPECT_EQ(places[1].top, places[0].top);
    EXPECT_EQ(places[3], (Place{places[1].left, places[1].top + 600}));
    EXPECT_EQ(places[4], (Place{places[1].left, places[1].top + 1200}));
    EXPECT_GT(places[5].top, places[4].top);
}

// Trees can be drawn without a crossing, whatever the numbers of their nodes are.
TEST(FlowLayout, DrawsTreesWithoutCrossings) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::mt19937 random(seed);
        std::vector<std::int32_t> numbers(200);
        std::iota(numbers.begin(), numbers.end(), 0);
        std::shuffle(numbers.begin(), numbers.end(), random);
        std::vector<Arc> arcs;
        for (std::size_t node = 1; node < numbers.size(); ++node) {
            arcs.push_back({numbers[(node - 1) / (2 + seed % 4)], numbers[node]});
        }
        const std::vector<Place> places = layOut(plain(200, arcs));
        for (const Arc& a : arcs) {
            for (const Arc& b : arcs) {
                const bool together = places[at(a.from)].left == places[at(b.from)].left;
                EXPECT_FALSE(together && places[at(a.from)].top < places[at(b.from)].top &&
                             places[at(a.to)].top > places[at(b.to)].top)
                    << seed;
            }
        }
    }
}

// Held against every order of two rows of five.
TEST(Rows, CrossLittleMoreThanTheyMust) {
    std::int64_t ours = 0, least = 0;
    for (unsigned seed = 0; seed < 12; ++seed) {
        std::mt19937 random(seed);
        std::vector<Arc> arcs;
        while (arcs.size() < 11) {
            arcs.push_back({static_cast<std::int32_t>(random() % 5), 5 + static_cast<std::int32_t>(random() % 5)});
        }
        const Layered graph = withWaypoints({0, 0, 0, 0, 0, 1, 1, 1, 1, 1}, arcs);
        ours += SortedLinks(graph, rowsOf(graph)).crossings();
        std::array<int, 5> left{0, 1, 2, 3, 4}, right = left;
        std::int64_t fewest = 1000;
        do {
            do {
                std::int64_t now = 0;
                for (const Arc& a : arcs) {
                    for (const Arc& b : arcs) {
                        now += left[at(a.from)] < left[at(b.from)] && right[at(a.to - 5)] > right[at(b.to - 5)];
                    }
                }
                fewest = std::min(fewest, now);
            } while (std::next_permutation(right.begin(), right.end()));
        } while (std::next_permutation(left.begin(), left.end()));
        least += fewest;
    }
    EXPECT_GT(least, 20);
    EXPECT_LE(ours, least + least / 10);
}

// Held against counting all pairs of arcs, and against the change that exchanging two vertices makes.
TEST(SortedLinks, CountsCrossings) {
    for (unsigned seed = 1; seed < 40; ++seed) {
        const FlowGraph any = anyGraph(seed, true);
        const std::vector<std::int32_t> order = flowOrder(any.nodes.size(), any.arcs);
        const std::vector<Arc> arcs = alongOrder(order, any.arcs);
        const Layered graph = withWaypoints(layersOf(order, arcs), arcs);
        Rows rows(graph.nodes.size());
        std::iota(rows.begin(), rows.end(), 0);
        SortedLinks links(graph, rows);
        std::int64_t pairs = 0;
        for (std::int32_t a = 0; a < std::ssize(rows); ++a) {
            for (std::int32_t b = a + 1; b < std::ssize(rows); ++b) {
                for (const std::int32_t toA : graph.behind.of(a)) {
                    pairs += std::ranges::count_if(graph.behind.of(b), [&](std::int32_t toB) {
                        return toB < toA;  // in the same layer: those behind have greater numbers
                    });
                }
            }
        }
        EXPECT_EQ(links.crossings(), pairs) << seed;
        for (std::size_t layer = 0; layer < graph.layers(); ++layer) {
            if (const auto row = links.row(layer); row.size() > 1) {
                std::vector<std::int32_t> turned(row.begin(), row.end());
                const SortedLinks::Choice choice = links.choice(turned[0], turned[1]);
                EXPECT_EQ(links.cross(turned[0], turned[1]), choice.above > 0);
                const std::int64_t former = links.crossings();
                std::swap(turned[0], turned[1]);
                links.setRow(layer, turned);
                links.sortListsBeside(layer);
                EXPECT_EQ(links.crossings() - former, choice.below - choice.above) << seed;
            }
        }
    }
}

TEST(NearestBox, FindsWhatASearchOfAllFinds) {
    std::mt19937 random(7);
    const auto box = [&random] {
        const auto x = static_cast<double>(random() % 400), y = static_cast<double>(random() % 400);
        return Area{x, y, x + static_cast<double>(random() % 9), y + static_cast<double>(random() % 9)};
    };
    const auto apart = [](const Area& a, const Area& b) {
        return std::hypot(std::max({0.0, a.left - b.right, b.left - a.right}),
                          std::max({0.0, a.top - b.bottom, b.top - a.bottom}));
    };
    for (const std::size_t count : {0U, 1U, 9U, 500U}) {
        std::vector<Area> boxes(count);
        std::ranges::generate(boxes, box);
        const NearestBox nearest(boxes);
        for (int asked = 0; asked < 300; ++asked) {
            const Area from = box();
            double least = 20;
            for (const Area& each : boxes) {
                least = std::min(least, apart(each, from));
            }
            const std::optional<std::size_t> found = nearest.to(from, 20);
            ASSERT_EQ(found.has_value(),
                      std::ranges::any_of(boxes, [&](const Area& each) { return apart(each, from) <= 20; }));
            ASSERT_EQ(found ? apart(boxes[*found], from) : least, least);
        }
    }
}

}  // namespace
}  // namespace orvent::layout
