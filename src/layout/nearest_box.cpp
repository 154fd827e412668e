#include "layout/nearest_box.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace orvent::layout {

namespace {

constexpr std::size_t kFew = 8;  // boxes that are not divided

Area around(const Area& a, const Area& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

}  // namespace

double apart(const Area& a, const Area& b) {
    const double dx = std::max({0.0, a.left - b.right, b.left - a.right});
    const double dy = std::max({0.0, a.top - b.bottom, b.top - a.bottom});
    return std::hypot(dx, dy);
}

NearestBox::NearestBox(std::vector<Area> boxes) : boxes_(std::move(boxes)), order_(boxes_.size()) {
    std::iota(order_.begin(), order_.end(), 0);
    if (!boxes_.empty()) {
        divide(0, 0, order_.size());
    }
}

/// The depth of the calls is the logarithm of the number of boxes.
void NearestBox::divide(std::size_t half, std::size_t begin, std::size_t end) {
    halves_.resize(std::max(halves_.size(), half + 1));
    Area area = boxes_[order_[begin]];
    for (std::size_t at = begin; at < end; ++at) {
        area = around(area, boxes_[order_[at]]);
    }
    halves_[half] = {area, begin, end};
    if (end - begin > kFew) {
        const bool across = area.right - area.left > area.bottom - area.top;
        const auto middle = [&](std::size_t box) {
            return across ? boxes_[box].left + boxes_[box].right : boxes_[box].top + boxes_[box].bottom;
        };
        const std::size_t cut = begin + (end - begin) / 2;
        const auto first = order_.begin();
        std::nth_element(first + static_cast<std::ptrdiff_t>(begin), first + static_cast<std::ptrdiff_t>(cut),
                         first + static_cast<std::ptrdiff_t>(end), [&](std::size_t a, std::size_t b) {
                             return std::pair(middle(a), a) < std::pair(middle(b), b);
                         });
        divide(2 * half + 1, begin, cut);
        divide(2 * half + 2, cut, end);
    }
}

std::optional<std::size_t> NearestBox::to(const Area& box, double reach, std::size_t except) const {
    std::optional<std::size_t> nearest;
    std::vector<std::pair<double, std::size_t>> open;
    const auto push = [&](std::size_t half) {
        if (const double least = apart(halves_[half].area, box); least <= reach) {
            open.emplace_back(least, half);
        }
    };
    if (!halves_.empty()) {
        push(0);
    }
    while (!open.empty()) {
        const auto [least, number] = open.back();
        open.pop_back();
        const Half& half = halves_[number];
        if (least > reach || (nearest && least >= reach)) {
            continue;
        }
        if (half.end - half.begin <= kFew) {
            for (std::size_t at = half.begin; at < half.end; ++at) {
                const double here = apart(boxes_[order_[at]], box);
                if (order_[at] != except && (here < reach || (!nearest && here <= reach))) {
                    reach = here;
                    nearest = order_[at];
                }
            }
            continue;
        }
        // The nearer one is looked at first.
        push(2 * number + 1);
        push(2 * number + 2);
        if (open.size() > 1 && open[open.size() - 2].first < open.back().first) {
            std::swap(open[open.size() - 2], open.back());
        }
    }
    return nearest;
}

}  // namespace orvent::layout
