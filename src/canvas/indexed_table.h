#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/text.h"

namespace orvent::canvas {

/// The nodes or edges of a canvas in order of insertion, addressed by `Index`, a `Number`. The canvas' counter only
/// grows, so the order of insertion is the order of `Index`, and a lookup is a binary search over small integers.
///
/// An item that goes leaves a hole, so that removing thousands costs no more than walking them, and a walk may remove.
/// Holes are closed when an item is added or asked for by position, which a walk therefore must not do.
template <class T, class Number>
class IndexedTable {
    using Items = std::vector<std::unique_ptr<T>>;

    template <class Value>
    class Iterator {
      public:
        explicit Iterator(const Items& items) : items_(&items) { skipHoles(); }
        Value& operator*() const { return *(*items_)[at_]; }
        Iterator& operator++() {
            ++at_;
            skipHoles();
            return *this;
        }
        bool operator!=(std::default_sentinel_t) const { return at_ < items_->size(); }

      private:
        void skipHoles() {
            while (at_ < items_->size() && !(*items_)[at_]) {
                ++at_;
            }
        }

        const Items* items_;
        std::size_t at_ = 0;
    };

  public:
    int Count() const { return static_cast<int>(items_.size() - holes_); }

    /// The item of that `Index`, or nothing.
    const T* byIndex(Number index) const { return itemAt(find(index)); }
    T* byIndex(Number index) { return itemAt(find(index)); }

    /// The item whose key, the decimal text of its `Index`, equals `key`, or nothing.
    const T* Item(const std::string& key) const { return itemAt(find(key)); }
    T* Item(const std::string& key) { return itemAt(find(key)); }

    /// The item at a 1-based position, or nothing.
    const T* at(int position) const { return positionAt(position); }
    T* at(int position) { return positionAt(position); }

    auto begin() { return Iterator<T>(items_); }
    auto begin() const { return Iterator<const T>(items_); }
    std::default_sentinel_t end() const { return {}; }

  protected:
    T& append(Number index, std::unique_ptr<T> item) {
        closeHoles();
        indices_.push_back(index);
        items_.push_back(std::move(item));
        return *items_.back();
    }

    /// Puts items that were appended with numbers of former ones where their `Index` says; until then nothing is found.
    void arrange() {
        closeHoles();
        std::vector<std::pair<Number, std::unique_ptr<T>>> all;
        all.reserve(items_.size());
        for (std::size_t at = 0; at < items_.size(); ++at) {
            all.emplace_back(indices_[at], std::move(items_[at]));
        }
        std::ranges::sort(all, {}, &std::pair<Number, std::unique_ptr<T>>::first);
        for (std::size_t at = 0; at < all.size(); ++at) {
            indices_[at] = all[at].first;
            items_[at] = std::move(all[at].second);
        }
    }

    std::unique_ptr<T> take(Number index) {
        const std::size_t at = find(index);
        if (at >= items_.size() || !items_[at]) {
            return nullptr;
        }
        std::unique_ptr<T> item = std::move(items_[at]);
        ++holes_;
        while (!items_.empty() && !items_.back()) {
            items_.pop_back();
            indices_.pop_back();
            --holes_;
        }
        return item;
    }

  private:
    T* itemAt(std::size_t at) const { return at < items_.size() ? items_[at].get() : nullptr; }

    T* positionAt(int position) const {
        closeHoles();
        return position >= 1 && position <= Count() ? items_[static_cast<std::size_t>(position - 1)].get() : nullptr;
    }

    std::size_t find(const std::string& key) const {
        const auto index = platform::parseInteger(key);
        return index ? find(static_cast<Number>(*index)) : items_.size();
    }

    /// Each `Index` is larger than the one before by one at least, so its distance from both ends bounds the place. As
    /// a rule no number is missing on one of the two sides, and nothing has to be searched.
    std::size_t find(Number index) const {
        if (indices_.empty() || index < indices_.front() || index > indices_.back()) {
            return items_.size();
        }
        const std::ptrdiff_t last = std::ssize(indices_) - 1;
        const auto least = indices_.begin() + std::max<std::ptrdiff_t>(0, last - distance(index, indices_.back()));
        const auto most = indices_.begin() + std::min<std::ptrdiff_t>(last, distance(indices_.front(), index));
        const auto place = *least == index ? least : *most == index ? most : std::lower_bound(least, most, index);
        return *place == index ? static_cast<std::size_t>(place - indices_.begin()) : items_.size();
    }

    static std::ptrdiff_t distance(Number from, Number to) {
        return static_cast<std::ptrdiff_t>(to) - static_cast<std::ptrdiff_t>(from);
    }

    void closeHoles() const {
        if (holes_ == 0) {
            return;
        }
        std::size_t kept = 0;
        for (std::size_t at = 0; at < items_.size(); ++at) {
            if (items_[at]) {
                indices_[kept] = indices_[at];
                std::swap(items_[kept++], items_[at]);
            }
        }
        items_.resize(kept);
        indices_.resize(kept);
        holes_ = 0;
    }

    // Closing holes changes nothing that can be seen.
    mutable std::vector<Number> indices_;
    mutable Items items_;
    mutable std::size_t holes_ = 0;
};

}  // namespace orvent::canvas
