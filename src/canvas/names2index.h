#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "canvas/numbers.h"

namespace orvent::canvas {

/// `NamesColl` of a canvas: every node's name and the node's `Index`. Names compare exactly.
class Names2IndexColl {
  public:
    Names2IndexColl() { names_.max_load_factor(0.5F); }

    /// `Index`, or `kNoNode` when the name is taken.
    NodeNumber Add(NodeNumber Index, const std::string& sKey) {
        return names_.emplace(sKey, Index).second ? Index : kNoNode;
    }

    /// The index, or `kNoNode` when there is no such name.
    NodeNumber Item(const std::string& sKey) const {
        const auto found = names_.find(sKey);
        return found == names_.end() ? kNoNode : found->second;
    }

    /// -1 (true) on success, 0 otherwise.
    int Remove(const std::string& sKey) { return names_.erase(sKey) ? -1 : 0; }

    /// Removes the name if it is that node's.
    void Release(NodeNumber Index, const std::string& sKey) {
        if (const auto found = names_.find(sKey); found != names_.end() && found->second == Index) {
            names_.erase(found);
        }
    }

    int Count() const { return static_cast<int>(names_.size()); }
    void Clear() { names_.clear(); }

  private:
    std::unordered_map<std::string, NodeNumber> names_;
};

}  // namespace orvent::canvas
