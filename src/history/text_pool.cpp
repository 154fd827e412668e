#include "history/text_pool.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace orvent::history {

namespace {

constexpr std::size_t kFirstPlaces = 64;  // a power of two

std::uint32_t hashOf(std::string_view text) {
    const std::uint64_t hash = std::hash<std::string_view>()(text);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

/// Room grows by a quarter: doubling would leave half of a large pool empty.
template <class Item>
void reserveFor(std::vector<Item>& items, std::size_t more) {
    if (items.capacity() - items.size() < more) {
        items.reserve(items.size() + std::max(more, items.size() / 4));
    }
}

}  // namespace

TextPool::TextPool() : ends_{0}, places_(kFirstPlaces) {
    number({});
}

std::size_t TextPool::placeOf(std::string_view text, std::uint32_t hash) const {
    const std::size_t mask = places_.size() - 1;
    std::size_t at = hash & mask;
    for (; places_[at].number != kFree; at = (at + 1) & mask) {
        if (places_[at].hash == hash && this->text(places_[at].number) == text) {
            break;
        }
    }
    return at;
}

std::uint32_t TextPool::number(std::string_view text) {
    const std::uint32_t hash = hashOf(text);
    std::size_t at = placeOf(text, hash);
    if (places_[at].number != kFree) {
        return places_[at].number;
    }
    makeRoom(text.size());
    at = placeOf(text, hash);
    const std::uint32_t fresh = size();
    letters_.insert(letters_.end(), text.begin(), text.end());
    ends_.push_back(static_cast<std::uint32_t>(letters_.size()));
    places_[at] = {fresh, hash};
    return fresh;
}

void TextPool::makeRoom(std::size_t letters) {
    if (letters > kFree - letters_.size()) {
        throw std::length_error("more text than a pool has room for");
    }
    reserveFor(letters_, letters);
    reserveFor(ends_, 1);
    if (4 * ends_.size() < 3 * places_.size()) {
        return;
    }
    std::vector<Place> former(2 * places_.size());
    former.swap(places_);
    const std::size_t mask = places_.size() - 1;
    for (const Place& place : former) {
        if (place.number != kFree) {
            std::size_t at = place.hash & mask;
            while (places_[at].number != kFree) {
                at = (at + 1) & mask;
            }
            places_[at] = place;
        }
    }
}

}  // namespace orvent::history
