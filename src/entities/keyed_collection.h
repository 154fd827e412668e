#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "entities/keyed_slots.h"
#include "platform/fault.h"

namespace orvent::entities {

/// A keyed collection: keeps insertion order, inserts at a position, finds by key and by 1-based position in constant
/// time. A number is always a position and a text always a key. `Item` and `Remove` of what is not there yield
/// nothing. Adding under a taken key throws a `Fault` and changes nothing. An item's address never changes.
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
    const std::string& keyAt(int position) const { return slots_.at(index(position)).key(); }

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
        slots_.insert(slots_.begin() + (position - 1), Slot(std::move(item), key));
        if (positions_ && !key.empty()) {
            (*positions_)[key] = index(position);
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
        const auto first = slots_.begin() + std::min(from, to) - 1;
        const auto last = slots_.begin() + std::max(from, to);
        std::rotate(first, from < to ? first + 1 : last - 1, last);
        if (positions_ && !keyAt(to).empty()) {
            (*positions_)[keyAt(to)] = index(to);
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
        std::vector<Slot> ordered;
        ordered.reserve(slots_.size());
        for (const std::size_t at : places) {
            ordered.push_back(std::move(slots_[at]));
        }
        slots_ = std::move(ordered);
        positions_.reset();
    }

    auto begin() { return Iterator<T>(slots_.data()); }
    auto end() { return Iterator<T>(slots_.data() + slots_.size()); }
    auto begin() const { return Iterator<const T>(slots_.data()); }
    auto end() const { return Iterator<const T>(slots_.data() + slots_.size()); }

  private:
    // Below this many items a walk is as quick as a table and takes no room.
    static constexpr std::size_t kWalk = 8;
    // A remembered position may lag behind insertions and removals; past this distance all are renewed.
    static constexpr std::size_t kDrift = 64;

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
        const auto entry = positions_->find(key);
        if (entry == positions_->end()) {
            return slots_.size();
        }
        std::size_t& hint = entry->second;
        for (std::size_t step = 0; step <= kDrift; ++step) {
            if (step <= hint && isAt(hint - step, key)) {
                return hint -= step;
            }
            if (isAt(hint + step, key)) {
                return hint += step;
            }
        }
        renew();
        return positions_->find(key)->second;
    }

    void renew() const {
        if (!positions_) {
            positions_ = std::make_unique<Positions>();
        }
        for (std::size_t at = 0; at < slots_.size(); ++at) {
            if (!slots_[at].key().empty()) {
                (*positions_)[slots_[at].key()] = at;
            }
        }
    }

    Holder take(std::size_t at) {
        if (positions_) {
            positions_->erase(slots_[at].key());
        }
        Holder item = std::move(slots_[at].item);
        slots_.erase(slots_.begin() + static_cast<std::ptrdiff_t>(at));
        return item;
    }

    using Positions = std::unordered_map<std::string, std::size_t>;

    std::vector<Slot> slots_;
    mutable std::unique_ptr<Positions> positions_;  // only of a collection that is too long to be walked
};

}  // namespace orvent::entities
