#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "entities/keyed_slots.h"
#include "platform/fault.h"
#include "platform/search_near.h"
#include "platform/tiered_vector.h"

namespace orvent::entities {

/// A keyed collection: keeps insertion order, finds by key and by 1-based position in constant time, and inserts and
/// removes anywhere at nearly the same cost whatever its length. A number is always a position and a text always a key.
/// `Item` and `Remove` of what is not there yield nothing. Adding under a taken key throws a `Fault` and changes
/// nothing. An item's address never changes.
///
/// `Holder` is a `unique_ptr`, or a `shared_ptr` where a node of a canvas holds the same item.
template <class T, class Holder = std::unique_ptr<T>, class Slot = KeyedSlot<Holder>>
class KeyedCollection {
    template <class Value>
    using Iterator = SlotIterator<Value, Slot>;

  public:
    int Count() const { return static_cast<int>(slots_.size()); }

    const T* Item(int position) const { return holds(position) ? slots_[index(position)].item.get() : nullptr; }
    const T* Item(const std::string& key) const { return itemAt(find(key)); }
    T* Item(int position) { return holds(position) ? slots_[index(position)].item.get() : nullptr; }
    T* Item(const std::string& key) { return itemAt(find(key)); }

    /// The holder itself, for a second owner; empty when there is no such item.
    Holder share(const std::string& key) requires std::copy_constructible<Holder> {
        const std::size_t at = find(key);
        return at < slots_.size() ? slots_[at].item : Holder{};
    }
    Holder share(int position) requires std::copy_constructible<Holder> {
        return holds(position) ? slots_[index(position)].item : Holder{};
    }

    /// The collection key of the item at `position`, empty when it was added without one.
    const std::string& keyAt(int position) const { return slots_[index(position)].key(); }

    /// The 1-based position of the key, 0 when there is none.
    int positionOf(const std::string& key) const {
        const std::size_t at = find(key);
        return at < slots_.size() ? static_cast<int>(at) + 1 : 0;
    }

    /// Adds at the end, under `key`, or without a key when it is empty.
    T& append(Holder item, const std::string& key) { return insert(Count() + 1, std::move(item), key); }

    /// Adds before the item at `position`; `Count() + 1` adds at the end.
    T& insert(int position, Holder item, const std::string& key) {
        if (find(key) < slots_.size()) {
            throw platform::Fault("This key is already associated with an element of this collection: " + key);
        }
        T& result = *item;
        slots_.insert(index(position), Slot(std::move(item), key));
        if (positions_ && !key.empty()) {
            positions_->seen[key] = index(position);
        }
        return result;
    }

    /// The same for a reader.
    std::shared_ptr<const T> share(int position) const requires std::copy_constructible<Holder> {
        return holds(position) ? slots_[index(position)].item : nullptr;
    }

    Holder Remove(int position) { return holds(position) ? take(index(position)) : Holder{}; }
    Holder Remove(const std::string& key) {
        const std::size_t at = find(key);
        return at < slots_.size() ? take(at) : Holder{};
    }

    /// Brings an item to another place; those between the two give way. Nothing when one of them is no position.
    void move(int from, int to) {
        if (!holds(from) || !holds(to)) {
            return;
        }
        slots_.move(index(from), index(to));
        if (positions_ && !keyAt(to).empty()) {
            positions_->seen[keyAt(to)] = index(to);
        }
    }

    void Clear() {
        slots_.clear();
        positions_.reset();
    }

    /// Puts the items in the order of `keys`; the items stay the same. Items that no key names keep their order behind
    /// them, and keys of no item are passed over.
    void reorder(const std::vector<std::string>& keys) {
        std::vector<std::size_t> places;
        std::vector<bool> taken(slots_.size());
        for (const std::string& key : keys) {
            if (const std::size_t at = find(key); at < slots_.size() && !taken[at]) {
                taken[at] = true;
                places.push_back(at);
            }
        }
        for (std::size_t at = 0; at < slots_.size(); ++at) {
            if (!taken[at]) {
                places.push_back(at);
            }
        }
        platform::TieredVector<Slot> ordered;
        for (const std::size_t at : places) {
            ordered.push_back(std::move(slots_[at]));
        }
        slots_ = std::move(ordered);
        positions_.reset();
    }

    auto begin() { return Iterator<T>(slots_.begin()); }
    auto end() { return Iterator<T>(); }
    auto begin() const { return Iterator<const T>(slots_.begin()); }
    auto end() const { return Iterator<const T>(); }

  private:
    // Below this many items a walk is as quick as a table and takes no room.
    static constexpr std::size_t kWalk = 8;

    static std::size_t index(int position) { return static_cast<std::size_t>(position - 1); }
    bool holds(int position) const { return position >= 1 && position <= Count(); }
    bool isAt(std::size_t at, const std::string& key) const { return at < slots_.size() && slots_[at].key() == key; }

    T* itemAt(std::size_t at) const { return at < slots_.size() ? slots_[at].item.get() : nullptr; }

    /// The index of the key, `slots_.size()` when there is none. The empty key stands for none and is never found.
    std::size_t find(const std::string& key) const {
        if (key.empty()) {
            return slots_.size();
        }
        if (slots_.size() <= kWalk) {
            std::size_t at = 0;
            while (at < slots_.size() && !isAt(at, key)) {
                ++at;
            }
            return at;
        }
        if (!positions_) {
            renew();
        }
        const auto entry = positions_->seen.find(key);
        if (entry == positions_->seen.end()) {
            return slots_.size();
        }
        if (isAt(entry->second, key)) {
            return entry->second;
        }
        const auto at =
            platform::searchNear(entry->second, positions_->drift, [&](std::size_t place) { return isAt(place, key); });
        if (at != platform::kNowhere) {
            return entry->second = at;
        }
        renew();
        return positions_->seen.find(key)->second;
    }

    void renew() const {
        if (!positions_) {
            positions_ = std::make_unique<Positions>();
        }
        std::size_t at = 0;
        for (auto slot = slots_.begin(); slot != slots_.end(); ++slot, ++at) {
            if (!(*slot).key().empty()) {
                positions_->seen[(*slot).key()] = at;
            }
        }
        positions_->drift = 0;
    }

    Holder take(std::size_t at) {
        if (positions_) {
            positions_->seen.erase(slots_[at].key());
        }
        return std::move(slots_.erase(at).item);
    }

    /// Where each key was seen last. That may lag behind insertions and removals.
    struct Positions {
        std::unordered_map<std::string, std::size_t> seen;
        std::ptrdiff_t drift = 0;
    };

    platform::TieredVector<Slot> slots_;
    mutable std::unique_ptr<Positions> positions_;  // only of a collection that is too long to be walked
};

}  // namespace orvent::entities
