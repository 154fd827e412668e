#pragma once

#include <string>
#include <utility>

#include "platform/tiered_vector.h"

namespace orvent::entities {

/// A place in a collection whose key is kept beside the item.
template <class Holder>
struct KeyedSlot {
    KeyedSlot() = default;
    KeyedSlot(Holder held, const std::string& collectionKey) : item(std::move(held)), kept(collectionKey) {}
    const std::string& key() const { return kept; }

    Holder item;
    std::string kept;
};

/// A place in a collection whose items know their key and never change it.
template <class Holder>
struct OwnKeySlot {
    OwnKeySlot() = default;
    OwnKeySlot(Holder held, const std::string&) : item(std::move(held)) {}
    const std::string& key() const { return item->key(); }

    Holder item;
};

/// Walks the items of a row of places.
template <class Value, class Slot>
class SlotIterator {
    using Place = typename platform::TieredVector<Slot>::Iterator;

  public:
    explicit SlotIterator(Place place = {}) : place_(place) {}
    Value& operator*() const { return *(*place_).item; }
    SlotIterator& operator++() {
        ++place_;
        return *this;
    }
    bool operator!=(const SlotIterator& other) const { return place_ != other.place_; }

  private:
    Place place_;
};

}  // namespace orvent::entities
