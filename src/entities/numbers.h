#pragma once

#include <cstdint>
#include <string>

namespace orvent::entities {

/// The numbers of the nodes and of the edges of one canvas, from 1 on: their `Index`. 0, the empty value, stands for
/// one that was not given yet. Members and links note those that show them while a zoom view is open.
enum class NodeNumber : std::int32_t {};
enum class EdgeNumber : std::int32_t {};

/// Whether it stands for a node or an edge.
template <class Number>
constexpr bool isGiven(Number number) {
    return number > Number{};
}

/// The number that is given behind this one.
template <class Number>
constexpr Number numberAfter(Number last) {
    return static_cast<Number>(static_cast<std::int32_t>(last) + 1);
}

template <class Number>
std::string textOf(Number number) {
    return std::to_string(static_cast<std::int32_t>(number));
}

/// No node, or no edge, in a field that names one.
inline constexpr NodeNumber kNoNode{-1};
inline constexpr EdgeNumber kNoEdge{-1};

}  // namespace orvent::entities
