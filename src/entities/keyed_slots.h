#pragma once

#include <string>
#include <utility>

namespace orvent::entities {

/// A place in a collection whose key is kept beside the item.
template <class Holder>
struct KeyedSlot {
    KeyedSlot(Holder held, const std::string& collectionKey) : item(std::move(held)), kept(collectionKey) {}
    const std::string& key() const { return kept; }

    Holder item;
    std::string kept;
};

/// A place in a collection whose items know their key and never change it.
template <class Holder>
struct OwnKeySlot {
    OwnKeySlot(Holder held, const std::string&) : item(std::move(held)) {}
    const std::string& key() const { return item->key(); }

    Holder item;
};

/// Walks the items of a row of places.
template <class Value, class Slot>
class SlotIterator {
  public:
    explicit SlotIterator(const Slot* slot) : slot_(slot) {}
    Value& operator*() const { return *slot_->item; }
    SlotIterator& operator++() {
        ++slot_;
        return *this;
    }
    bool operator!=(const SlotIterator& other) const { return slot_ != other.slot_; }

  private:
    const Slot* slot_;
};

}  // namespace orvent::entities
