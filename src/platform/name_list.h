#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace orvent::platform {

/// "A, B, C": five names at most, and how many more there are.
inline std::string nameList(const std::vector<std::string>& names) {
    constexpr std::size_t most = 5;
    std::string list;
    for (std::size_t at = 0; at < std::min(names.size(), most); ++at) {
        list += (at == 0 ? "" : ", ") + names[at];
    }
    return names.size() > most ? list + " and " + std::to_string(names.size() - most) + " more" : list;
}

}  // namespace orvent::platform
