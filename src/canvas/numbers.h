#pragma once

#include <cstdint>

#include "entities/numbers.h"

namespace orvent::canvas {

using entities::EdgeNumber;
using entities::isGiven;
using entities::kNoEdge;
using entities::kNoNode;
using entities::NodeNumber;
using entities::numberAfter;
using entities::textOf;

/// The parts of an edge that have a handle, and its number among all of a canvas; 0 for none.
enum class HandlePart { start = 0, middle = 1, end = 2 };
enum class HandleNumber : std::int32_t {};

constexpr HandleNumber handleOf(EdgeNumber edge, HandlePart part) {
    return HandleNumber{3 * static_cast<std::int32_t>(edge) - 2 + static_cast<std::int32_t>(part)};
}

/// The edge to which a handle belongs, and which of its handles it is.
constexpr EdgeNumber edgeOfHandle(HandleNumber handle) {
    return EdgeNumber{(static_cast<std::int32_t>(handle) + 2) / 3};
}
constexpr HandlePart partOfHandle(HandleNumber handle) {
    return static_cast<HandlePart>((static_cast<std::int32_t>(handle) + 2) % 3);
}

}  // namespace orvent::canvas
