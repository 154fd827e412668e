#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace orvent::history {

/// A list whose copies share what is the same in them: to copy it takes a step for each block, to change an item at
/// most a copy of its block. For one thread.
template <class Item>
class SharedList {
  public:
    static constexpr std::size_t kBlock = 128;  ///< items

    std::size_t size() const { return size_; }
    const Item& operator[](std::size_t at) const { return (*blocks_[at / kBlock])[at % kBlock]; }
    /// An item that no copy shares. It stays where it is until the list is copied.
    Item& edit(std::size_t at) {
        std::shared_ptr<Block>& block = blocks_[at / kBlock];
        if (block.use_count() > 1) {
            block = std::make_shared<Block>(*block);
        }
        return (*block)[at % kBlock];
    }
    /// Adds items as they are by default, so that it has so many at least.
    void growTo(std::size_t size) {
        while (blocks_.size() * kBlock < size) {
            blocks_.push_back(std::make_shared<Block>());
        }
        size_ = std::max(size_, size);
    }
    void clear() {
        blocks_.clear();
        size_ = 0;
    }

    /// Runs with the place of each item that is another one than in the other list; behind the end of the shorter list
    /// with those that are not as by default. Ends early when `visit` says so, and tells that.
    template <class Visit>
    bool eachOther(const SharedList& other, const Visit& visit) const {
        const Item none{};
        for (std::size_t at = 0; at < std::max(size_, other.size_); ++at) {
            if (at % kBlock == 0 && blockAt(at) == other.blockAt(at)) {
                at += kBlock - 1;
            } else if ((at < size_ ? (*this)[at] : none) != (at < other.size_ ? other[at] : none) && visit(at)) {
                return true;
            }
        }
        return false;
    }

  private:
    using Block = std::array<Item, kBlock>;

    const Block* blockAt(std::size_t at) const {
        return at / kBlock < blocks_.size() ? blocks_[at / kBlock].get() : nullptr;
    }

    std::vector<std::shared_ptr<Block>> blocks_;
    std::size_t size_ = 0;
};

}  // namespace orvent::history
