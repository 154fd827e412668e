#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orvent::links {

/// A member that may be joined by its name.
struct NamedEnd {
    std::string owner, name;
    std::int16_t type = 0;
};

/// How surely two names mean the same, the surest first.
enum class NameMatch {
    equal,
    withoutOwner,  ///< but for the source's owner before them: "EMP_ID" and "ID" of EMP
    folded,        ///< but for that, the case and underscores
    none,
};

NameMatch matchOf(const NamedEnd& source, const NamedEnd& target);

/// A source and a target, by their places.
struct NamePair {
    std::size_t source, target;
    bool only = true;  ///< no other source fits the target as well
};

/// For each target the sources whose names fit it best, in the order of the targets. Only pairs for which `mayJoin` is
/// true count.
std::vector<NamePair> pairsByName(const std::vector<NamedEnd>& sources, const std::vector<NamedEnd>& targets,
                                  const std::function<bool(std::size_t source, std::size_t target)>& mayJoin);

}  // namespace orvent::links
