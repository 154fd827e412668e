#pragma once

#include <ostream>

#include "entities/numbers.h"

namespace orvent::entities {

inline std::ostream& operator<<(std::ostream& out, NodeNumber number) {
    return out << textOf(number);
}
inline std::ostream& operator<<(std::ostream& out, EdgeNumber number) {
    return out << textOf(number);
}

}  // namespace orvent::entities

namespace orvent {

constexpr entities::NodeNumber operator""_node(unsigned long long number) {
    return static_cast<entities::NodeNumber>(number);
}
constexpr entities::EdgeNumber operator""_edge(unsigned long long number) {
    return static_cast<entities::EdgeNumber>(number);
}

}  // namespace orvent
