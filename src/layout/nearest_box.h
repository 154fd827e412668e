#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace orvent::layout {

/// A rectangle; any unit.
struct Area {
    double left = 0, top = 0, right = 0, bottom = 0;
};

/// How far one is from the other at least, 0 when they touch.
double apart(const Area& a, const Area& b);

/// Finds the box that lies nearest to another one, in a time that hardly grows with their number.
class NearestBox {
  public:
    explicit NearestBox(std::vector<Area> boxes);

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    /// The number of the nearest one but `except`; nothing when none lies within `reach`.
    std::optional<std::size_t> to(const Area& box, double reach, std::size_t except = kNone) const;

  private:
    /// A half of a half of all boxes, and so on: what its boxes cover together.
    struct Half {
        Area area;
        std::size_t begin, end;  ///< in `order_`
    };
    void divide(std::size_t half, std::size_t begin, std::size_t end);

    std::vector<Area> boxes_;
    std::vector<std::size_t> order_;
    std::vector<Half> halves_;  // the two halves of one at 2 n + 1 and 2 n + 2
};

}  // namespace orvent::layout
