#include "layout/sorted_links.h"

#include <algorithm>
#include <utility>

namespace orvent::layout {

SortedLinks::Lists::Lists(std::size_t vertices, const Neighbours& neighbours) {
    std::size_t length = 0;
    for (std::size_t vertex = 0; vertex < vertices; ++vertex) {
        begins_.push_back(static_cast<std::uint32_t>(length));
        length += neighbours.count(static_cast<std::int32_t>(vertex));
    }
    begins_.push_back(static_cast<std::uint32_t>(length));
    next_ = begins_;
    numbers_.resize(length);
}

void SortedLinks::Lists::restart(std::size_t first, std::size_t end) {
    std::copy(begins_.begin() + static_cast<std::ptrdiff_t>(first), begins_.begin() + static_cast<std::ptrdiff_t>(end),
              next_.begin() + static_cast<std::ptrdiff_t>(first));
}

SortedLinks::SortedLinks(const Layered& graph, Rows rows)
    : graph_(graph),
      rows_(std::move(rows)),
      places_(graph.nodes.size()),
      before_(graph.nodes.size(), graph.before),
      behind_(graph.nodes.size(), graph.behind) {
    for (std::size_t layer = 0; layer < graph.layers(); ++layer) {
        setRow(layer, row(layer));
    }
    sortAllLists();
}

void SortedLinks::setRow(std::size_t layer, std::span<const std::int32_t> vertices) {
    std::copy(vertices.begin(), vertices.end(), rows_.begin() + static_cast<std::ptrdiff_t>(graph_.begins[layer]));
    std::int32_t place = 0;
    for (const std::int32_t vertex : vertices) {
        places_[static_cast<std::size_t>(vertex)] = place++;
    }
}

void SortedLinks::sortListsBeside(std::size_t layer) {
    if (layer > 0) {
        fillBehind(layer - 1);
    }
    if (layer + 1 < graph_.layers()) {
        fillBefore(layer + 1);
    }
}

void SortedLinks::sortAllLists() {
    for (std::size_t layer = 0; layer + 1 < graph_.layers(); ++layer) {
        fillBehind(layer);
        fillBefore(layer + 1);
    }
}

/// Writes the vertices of the layer before, in their order, into the lists of this one.
void SortedLinks::fillBefore(std::size_t layer) {
    before_.restart(graph_.begins[layer], graph_.begins[layer + 1]);
    for (const std::int32_t vertex : row(layer - 1)) {
        for (const std::int32_t other : graph_.behind.of(vertex)) {
            before_.put(other, place(vertex));
        }
    }
}

void SortedLinks::fillBehind(std::size_t layer) {
    behind_.restart(graph_.begins[layer], graph_.begins[layer + 1]);
    for (const std::int32_t vertex : row(layer + 1)) {
        for (const std::int32_t other : graph_.before.of(vertex)) {
            behind_.put(other, place(vertex));
        }
    }
}

bool SortedLinks::cross(std::int32_t upper, std::int32_t lower) const {
    const auto reach = [&](const Lists& lists) {
        const auto ends = lists.of(upper), others = lists.of(lower);
        return !ends.empty() && !others.empty() && others.front() < ends.back();
    };
    return reach(before_) || reach(behind_);
}

SortedLinks::Choice SortedLinks::choice(std::int32_t one, std::int32_t other) const {
    Choice result;
    for (const Lists* lists : {&before_, &behind_}) {
        const auto ends = lists->of(one), others = lists->of(other);
        if (ends.empty() || others.empty()) {
            continue;
        }
        auto lower = others.begin(), upTo = lower;  // of the other's ends those above one of ours, those not below it
        for (const std::int32_t end : ends) {
            while (lower != others.end() && *lower < end) {
                ++lower;
            }
            upTo = std::max(upTo, lower);
            while (upTo != others.end() && *upTo == end) {
                ++upTo;
            }
            result.above += lower - others.begin();
            result.below += others.end() - upTo;
        }
    }
    return result;
}

std::int64_t SortedLinks::crossings() const {
    std::int64_t all = 0;
    std::vector<std::int32_t> sums;
    for (std::size_t layer = 0; layer + 1 < graph_.layers(); ++layer) {
        all += crossingsBehind(layer, sums);
    }
    return all;
}

/// From the top down each arc crosses those before it that end below its own end. They are counted by sums over
/// stretches of places whose lengths are powers of two.
std::int64_t SortedLinks::crossingsBehind(std::size_t layer, std::vector<std::int32_t>& sums) const {
    const std::size_t places = row(layer + 1).size();
    sums.assign(places + 1, 0);
    std::int64_t all = 0;
    std::int32_t ended = 0;
    for (const std::int32_t vertex : row(layer)) {
        for (const std::int32_t place : behind_.of(vertex)) {
            const auto end = static_cast<std::size_t>(place) + 1;
            std::int32_t notBelow = 0;
            for (std::size_t at = end; at > 0; at &= at - 1) {
                notBelow += sums[at];
            }
            all += ended - notBelow;
            for (std::size_t at = end; at <= places; at += at & (~at + 1)) {
                ++sums[at];
            }
            ++ended;
        }
    }
    return all;
}

}  // namespace orvent::layout
