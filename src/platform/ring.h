#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <utility>

namespace orvent::platform {

/// Places for `kRing` items that begin anywhere in an array and go on at its front; it does not know how many are
/// taken. Indices count from 0, and places that are free hold the empty value.
template <class T, std::size_t kRing>
class Ring {
  public:
    T& operator[](std::size_t at) { return (*cells_)[(first_ + at) % kRing]; }
    /// Makes room at `at` among `count` items, from the nearer end.
    void open(std::size_t at, std::size_t count) {
        if (at < count / 2) {
            turnBack();
            for (std::size_t each = 0; each < at; ++each) {
                (*this)[each] = std::move((*this)[each + 1]);
            }
            return;
        }
        for (; count > at; --count) {
            (*this)[count] = std::move((*this)[count - 1]);
        }
    }
    /// Closes the gap at `at` among `count` items.
    void close(std::size_t at, std::size_t count) {
        if (at < count / 2) {
            for (; at > 0; --at) {
                (*this)[at] = std::move((*this)[at - 1]);
            }
            (*this)[0] = T();
            turn();
            return;
        }
        for (; at + 1 < count; ++at) {
            (*this)[at] = std::move((*this)[at + 1]);
        }
        (*this)[at] = T();
    }
    /// The last place becomes the first, or the first the last.
    void turnBack() { first_ = (first_ + kRing - 1) % kRing; }
    void turn() { first_ = (first_ + 1) % kRing; }
    /// How many items from `at` on lie side by side.
    std::size_t sideBySide(std::size_t at) const { return std::min(kRing - at, kRing - (first_ + at) % kRing); }

  private:
    std::unique_ptr<std::array<T, kRing>> cells_ = std::make_unique<std::array<T, kRing>>();
    std::size_t first_ = 0;
};

}  // namespace orvent::platform
