#include "qt/canvas/grid_index.h"

#include <cmath>

namespace orvent::qt {

namespace {

constexpr float kCell = 7680;
constexpr float kFarthest = 1e9F;  // coordinates beyond count as this
constexpr std::int64_t kManyCells = 32;

std::int32_t cellOf(float twips) {
    if (std::isnan(twips)) {
        return 0;
    }
    return static_cast<std::int32_t>(std::floor(std::clamp(twips, -kFarthest, kFarthest) / kCell));
}

std::uint64_t cellKey(std::int32_t x, std::int32_t y) {
    return (std::uint64_t{static_cast<std::uint32_t>(x)} << 32) | static_cast<std::uint32_t>(y);
}

template <class Visit>
void forEachCell(const CellRange& range, const Visit& visit) {
    for (std::int32_t y = range.top; y <= range.bottom; ++y) {
        for (std::int32_t x = range.left; x <= range.right; ++x) {
            visit(cellKey(x, y));
        }
    }
}

void drop(std::vector<GridIndex::Slot>& list, GridIndex::Slot slot) {
    const auto found = std::find(list.begin(), list.end(), slot);
    if (found != list.end()) {
        *found = list.back();
        list.pop_back();
    }
}

}  // namespace

CellRange cellsOf(const Extent& extent) {
    return {cellOf(extent.left), cellOf(extent.top), cellOf(extent.right), cellOf(extent.bottom)};
}

GridIndex::Slot GridIndex::add(const Extent& extent) {
    const Slot slot = static_cast<Slot>(items_.size());
    items_.push_back({extent, cellsOf(extent), generation_, true});
    ++count_;
    enter(slot);
    growBounds(extent);
    return slot;
}

void GridIndex::move(Slot slot, const Extent& extent) {
    Item& item = items_[slot];
    const Extent former = item.extent;
    if (former == extent) {
        return;
    }
    const CellRange cells = cellsOf(extent);
    item.extent = extent;
    if (cells != item.cells) {
        leave(slot);
        item.cells = cells;
        enter(slot);
    }
    shrinkBounds(former);
    growBounds(extent);
}

void GridIndex::remove(Slot slot) {
    leave(slot);
    items_[slot].live = false;
    --count_;
    shrinkBounds(items_[slot].extent);
}

void GridIndex::clear() {
    items_.clear();
    cells_.clear();
    large_.clear();
    count_ = 0;
    boundsKnown_ = false;
}

void GridIndex::enter(Slot slot) {
    const CellRange& cells = items_[slot].cells;
    if (cells.count() > kManyCells) {
        large_.push_back(slot);
        return;
    }
    forEachCell(cells, [&](std::uint64_t key) { cells_[key].push_back(slot); });
}

void GridIndex::leave(Slot slot) {
    const CellRange& cells = items_[slot].cells;
    if (cells.count() > kManyCells) {
        drop(large_, slot);
        return;
    }
    forEachCell(cells, [&](std::uint64_t key) {
        const auto cell = cells_.find(key);
        drop(cell->second, slot);
        if (cell->second.empty()) {
            cells_.erase(cell);
        }
    });
}

void GridIndex::growBounds(const Extent& extent) {
    if (count_ == 1) {
        bounds_ = extent;
        boundsKnown_ = true;
    } else if (boundsKnown_) {
        bounds_ = bounds_.united(extent);
    }
}

// Only an item at the rim can have carried the bounds; all others leave them as they are.
void GridIndex::shrinkBounds(const Extent& former) {
    if (former.left <= bounds_.left || former.top <= bounds_.top || former.right >= bounds_.right ||
        former.bottom >= bounds_.bottom) {
        boundsKnown_ = false;
    }
}

std::optional<Extent> GridIndex::bounds() const {
    if (count_ == 0) {
        return std::nullopt;
    }
    if (!boundsKnown_) {
        bool first = true;
        for (const Item& item : items_) {
            if (item.live) {
                bounds_ = first ? item.extent : bounds_.united(item.extent);
                first = false;
            }
        }
        boundsKnown_ = true;
    }
    return bounds_;
}

void GridIndex::collect(const std::vector<Slot>& from, const Extent& area, std::vector<Slot>& found) const {
    for (const Slot slot : from) {
        Item& item = items_[slot];
        if (item.stamp != generation_) {
            item.stamp = generation_;
            if (item.extent.meets(area)) {
                found.push_back(slot);
            }
        }
    }
}

void GridIndex::query(const Extent& area, std::vector<Slot>& found) const {
    const CellRange range = cellsOf(area);
    if (range.count() >= static_cast<std::int64_t>(cells_.size())) {
        // The area covers the whole picture or nearly so: a plain walk needs no sorting.
        for (Slot slot = 0; slot < items_.size(); ++slot) {
            if (items_[slot].live && items_[slot].extent.meets(area)) {
                found.push_back(slot);
            }
        }
        return;
    }
    ++generation_;
    const std::size_t start = found.size();
    forEachCell(range, [&](std::uint64_t key) {
        if (const auto cell = cells_.find(key); cell != cells_.end()) {
            collect(cell->second, area, found);
        }
    });
    collect(large_, area, found);
    std::sort(found.begin() + static_cast<std::ptrdiff_t>(start), found.end());
}

}  // namespace orvent::qt
