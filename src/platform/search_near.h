#pragma once

#include <cstddef>

namespace orvent::platform {

/// Beyond every index: there is no such item.
inline constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

/// Where an item stands now that was seen at `seen`: `isAt` tells whether it stands at an index. What comes and goes
/// shifts neighbours alike, so it is also looked for where `drift`, the last shift that was found, would bring it.
/// `kNowhere` when it is not near; then all places are to be renewed.
template <class IsAt>
std::size_t searchNear(std::size_t seen, std::ptrdiff_t& drift, const IsAt& isAt) {
    constexpr std::ptrdiff_t kNear = 64;
    const auto start = static_cast<std::ptrdiff_t>(seen);
    for (std::ptrdiff_t step = 0; step <= kNear; ++step) {
        for (const std::ptrdiff_t at : {start - step, start + step, start + drift - step, start + drift + step}) {
            if (at >= 0 && isAt(static_cast<std::size_t>(at))) {
                const bool fresh = at - start >= -1 && at - start <= 1;  // tells nothing about the others
                drift = fresh ? drift : at - start;
                return static_cast<std::size_t>(at);
            }
        }
    }
    return kNowhere;
}

}  // namespace orvent::platform
