#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "platform/ring.h"

namespace orvent::platform {

/// A vector in two tiers: reading by index takes constant time as in a plain one, and inserting or erasing anywhere
/// moves some hundred items and one more per `kRing` of them, however many there are. Indices count from 0. `T` is
/// movable and has an empty value; a change leaves no reference to an item good.
///
/// Up to `kRing` items lie in one array. Beyond, they lie in rings, all of them full but the last; an item that is
/// pushed out of one ring becomes the first of the next, which turns its ring by one place instead of shifting it.
template <class T>
class TieredVector {
    static constexpr std::size_t kRing = 256;
    using Ring = platform::Ring<T, kRing>;

  public:
    std::size_t size() const { return size_; }

    T& operator[](std::size_t at) { return many_ ? (*many_)[at / kRing][at % kRing] : few_[at]; }
    const T& operator[](std::size_t at) const { return const_cast<TieredVector&>(*this)[at]; }

    /// Puts the item before the one at `at`; `size()` appends.
    void insert(std::size_t at, T item) {
        if (many_) {
            insertMany(at, std::move(item));
            return;
        }
        if (size_ == room_) {
            grow();
            if (many_) {
                insertMany(at, std::move(item));
                return;
            }
        }
        std::move_backward(few_.get() + at, few_.get() + size_, few_.get() + size_ + 1);
        few_[at] = std::move(item);
        ++size_;
    }

    void push_back(T item) { insert(size_, std::move(item)); }

    /// Takes the item out.
    T erase(std::size_t at) {
        T item = std::move((*this)[at]);
        if (many_) {
            eraseMany(at);
        } else {
            std::move(few_.get() + at + 1, few_.get() + size_, few_.get() + at);
            few_[--size_] = T();
        }
        return item;
    }

    /// Brings an item to another index; those between the two give way.
    void move(std::size_t from, std::size_t to) {
        if (from > to + kRing || to > from + kRing) {
            insert(to, erase(from));
            return;
        }
        T item = std::move((*this)[from]);
        for (; from < to; ++from) {
            (*this)[from] = std::move((*this)[from + 1]);
        }
        for (; from > to; --from) {
            (*this)[from] = std::move((*this)[from - 1]);
        }
        (*this)[to] = std::move(item);
    }

    void clear() { *this = TieredVector(); }

    TieredVector() = default;
    TieredVector(TieredVector&& other) noexcept { *this = std::move(other); }
    TieredVector& operator=(TieredVector&& other) noexcept {
        few_ = std::move(other.few_);
        many_ = std::move(other.many_);
        size_ = std::exchange(other.size_, 0);
        room_ = std::exchange(other.room_, 0);
        return *this;
    }

    /// Walks forward over all items.
    class Iterator {
      public:
        Iterator() = default;
        const T& operator*() const { return *item_; }
        Iterator& operator++() {
            if (++item_ == last_) {
                run(next_);
            }
            return *this;
        }
        bool operator!=(const Iterator& other) const { return item_ != other.item_; }

      private:
        friend class TieredVector;
        explicit Iterator(const TieredVector& items) : items_(&items) { run(0); }
        void run(std::size_t at) {
            const std::size_t length = items_->runFrom(at);
            item_ = length == 0 ? nullptr : &(*items_)[at];
            last_ = item_ + length;
            next_ = at + length;
        }

        const TieredVector* items_ = nullptr;
        const T* item_ = nullptr;  // of the end: null
        const T* last_ = nullptr;  // behind the items that lie side by side with it
        std::size_t next_ = 0;
    };
    Iterator begin() const { return Iterator(*this); }
    Iterator end() const { return Iterator(); }

  private:
    using Rings = std::vector<Ring>;

    /// How many items lie side by side from `at` on, 0 at the end.
    std::size_t runFrom(std::size_t at) const {
        const std::size_t rest = size_ - at;
        return many_ && rest > 0 ? std::min(rest, (*many_)[at / kRing].sideBySide(at % kRing)) : rest;
    }

    /// Doubles the array, or goes over to rings.
    void grow() {
        if (room_ == kRing) {
            many_ = std::make_unique<Rings>(1);
            for (std::size_t at = 0; at < kRing; ++at) {
                (*many_)[0][at] = std::move(few_[at]);
            }
            few_.reset();
            return;
        }
        const std::uint32_t room = room_ == 0 ? 1 : room_ * 2;
        std::unique_ptr<T[]> wider(new T[room]);
        std::move(few_.get(), few_.get() + size_, wider.get());
        few_ = std::move(wider);
        room_ = room;
    }

    void insertMany(std::size_t at, T item) {
        if (size_ % kRing == 0) {
            many_->emplace_back();
        }
        const std::size_t last = many_->size() - 1, inLast = size_ % kRing;
        std::size_t ring = at / kRing;
        const std::size_t place = at % kRing;
        if (ring == last) {
            (*many_)[ring].open(place, inLast);
            (*many_)[ring][place] = std::move(item);
        } else {
            T pushed = std::move((*many_)[ring][kRing - 1]);
            (*many_)[ring].open(place, kRing - 1);
            (*many_)[ring][place] = std::move(item);
            for (++ring; ring < last; ++ring) {
                (*many_)[ring].turnBack();
                std::swap((*many_)[ring][0], pushed);
            }
            (*many_)[last].turnBack();
            (*many_)[last][0] = std::move(pushed);
        }
        ++size_;
    }

    void eraseMany(std::size_t at) {
        const std::size_t last = many_->size() - 1, inLast = (size_ - 1) % kRing + 1;
        std::size_t ring = at / kRing;
        (*many_)[ring].close(at % kRing, ring == last ? inLast : kRing);
        for (; ring < last; ++ring) {
            (*many_)[ring][kRing - 1] = std::move((*many_)[ring + 1][0]);
            (*many_)[ring + 1].turn();
        }
        if (--size_ % kRing == 0) {
            many_->pop_back();
        }
    }

    std::unique_ptr<T[]> few_;
    std::unique_ptr<Rings> many_;
    std::uint32_t size_ = 0;
    std::uint32_t room_ = 0;  // of the array
};

}  // namespace orvent::platform
