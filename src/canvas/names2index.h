#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

namespace orvent::canvas {

/// `NamesColl` of a canvas: every node's name and the node's `Index`. Names compare exactly.
class Names2IndexColl {
  public:
    Names2IndexColl() { names_.max_load_factor(0.5F); }

    /// `Index`, or -1 when the name is taken.
    std::int32_t Add(std::int32_t Index, const std::string& sKey) {
        return names_.emplace(sKey, Index).second ? Index : -1;
    }

    /// The index, or -1 when there is no such name.
    std::int32_t Item(const std::string& sKey) const {
        const auto found = names_.find(sKey);
        return found == names_.end() ? -1 : found->second;
    }

    /// -1 (true) on success, 0 otherwise.
    int Remove(const std::string& sKey) { return names_.erase(sKey) ? -1 : 0; }

    /// Removes the name if it is that node's.
    void Release(std::int32_t Index, const std::string& sKey) {
        if (const auto found = names_.find(sKey); found != names_.end() && found->second == Index) {
            names_.erase(found);
        }
    }

    int Count() const { return static_cast<int>(names_.size()); }
    void Clear() { names_.clear(); }

  private:
    std::unordered_map<std::string, std::int32_t> names_;
};

}  // namespace orvent::canvas
