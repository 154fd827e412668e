#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace orvent::history {

/// Texts, each once, by numbers from 0 on in order of addition. Number 0 is the empty text. It only grows, and takes
/// about a dozen bytes for each text beside its own.
class TextPool {
  public:
    TextPool();

    std::uint32_t number(std::string_view text);
    /// Good until the next one is added.
    std::string_view text(std::uint32_t number) const {
        return std::string_view(letters_.data() + ends_[number], ends_[number + 1] - ends_[number]);
    }
    std::uint32_t size() const { return static_cast<std::uint32_t>(ends_.size() - 1); }

  private:
    /// Where a text stands, or the free place where it will.
    std::size_t placeOf(std::string_view text, std::uint32_t hash) const;
    void makeRoom(std::size_t letters);

    struct Place {
        std::uint32_t number = kFree, hash = 0;
    };
    static constexpr std::uint32_t kFree = ~std::uint32_t{0};

    std::vector<char> letters_;        // one text behind the other
    std::vector<std::uint32_t> ends_;  // of each text, behind a 0
    std::vector<Place> places_;        // by hash, at most three quarters of them taken
};

}  // namespace orvent::history
