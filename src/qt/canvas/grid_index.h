#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "qt/canvas/extent.h"

namespace orvent::qt {

/// A square of the grid, or a range of them.
struct CellRange {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const CellRange&) const = default;
    std::int64_t count() const { return (std::int64_t{right} - left + 1) * (std::int64_t{bottom} - top + 1); }
};

/// The cells that an extent touches. Cells are 7680 twips wide and high (512 pixels at scale 1).
CellRange cellsOf(const Extent& extent);

/// Which slots lie where: a uniform grid over the picture. A slot is a number that its owner gives to an item; it comes
/// back in queries in ascending order, each once. Very large extents lie in a list of their own.
class GridIndex {
  public:
    using Slot = std::uint32_t;

    Slot add(const Extent& extent);
    void move(Slot slot, const Extent& extent);
    void remove(Slot slot);
    void clear();

    const Extent& extent(Slot slot) const { return items_[slot].extent; }
    std::size_t slotCount() const { return items_.size(); }
    std::size_t count() const { return count_; }

    /// The union of all extents, or nothing for an empty index.
    std::optional<Extent> bounds() const;

    /// Appends the slots whose extents meet the area.
    void query(const Extent& area, std::vector<Slot>& found) const;

  private:
    struct Item {
        Extent extent;
        CellRange cells;
        std::uint32_t stamp = 0;
        bool live = false;
    };

    void enter(Slot slot);
    void leave(Slot slot);
    void growBounds(const Extent& extent);
    void shrinkBounds(const Extent& former);
    void collect(const std::vector<Slot>& from, const Extent& area, std::vector<Slot>& found) const;

    mutable std::vector<Item> items_;  // the stamps change in queries
    std::unordered_map<std::uint64_t, std::vector<Slot>> cells_;
    std::vector<Slot> large_;
    std::size_t count_ = 0;
    mutable std::uint32_t generation_ = 0;
    mutable Extent bounds_;
    mutable bool boundsKnown_ = false;
};

/// A grid index of items of the model, found by their address.
template <class Item>
class ItemIndex {
  public:
    /// Enters the item or moves it; gives the extent that it had before.
    std::optional<Extent> put(const Item& item, const Extent& extent) {
        const auto found = slots_.find(&item);
        if (found == slots_.end()) {
            slots_.emplace(&item, grid_.add(extent));
            items_.push_back(&item);
            return std::nullopt;
        }
        const Extent former = grid_.extent(found->second);
        grid_.move(found->second, extent);
        return former;
    }

    std::optional<Extent> remove(const Item& item) {
        const auto found = slots_.find(&item);
        if (found == slots_.end()) {
            return std::nullopt;
        }
        const Extent former = grid_.extent(found->second);
        grid_.remove(found->second);
        items_[found->second] = nullptr;
        slots_.erase(found);
        return former;
    }

    void clear() {
        grid_.clear();
        slots_.clear();
        items_.clear();
    }

    std::size_t count() const { return grid_.count(); }
    /// True when so many slots are empty that building the index anew pays.
    bool isWorn() const { return grid_.slotCount() > 1024 && grid_.slotCount() > 2 * grid_.count(); }
    std::optional<Extent> bounds() const { return grid_.bounds(); }

    /// The items that meet the area, in order of entry. The result holds until the next call.
    const std::vector<const Item*>& at(const Extent& area) const {
        found_.clear();
        result_.clear();
        grid_.query(area, found_);
        for (const GridIndex::Slot slot : found_) {
            result_.push_back(items_[slot]);
        }
        return result_;
    }

  private:
    GridIndex grid_;
    std::unordered_map<const Item*, GridIndex::Slot> slots_;
    std::vector<const Item*> items_;
    mutable std::vector<GridIndex::Slot> found_;
    mutable std::vector<const Item*> result_;
};

}  // namespace orvent::qt
