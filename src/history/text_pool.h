#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace orvent::history {

/// Texts, each once, by numbers from 0 on in order of addition. Number 0 is the empty text. It only grows.
class TextPool {
  public:
    TextPool() { number({}); }

    std::uint32_t number(std::string_view text) {
        const auto known = numbers_.find(text);
        if (known != numbers_.end()) {
            return known->second;
        }
        const auto fresh = static_cast<std::uint32_t>(texts_.size());
        numbers_.emplace(texts_.emplace_back(text), fresh);
        bytes_ += text.size() + kOverhead;
        return fresh;
    }
    const std::string& text(std::uint32_t number) const { return texts_[number]; }
    std::uint32_t size() const { return static_cast<std::uint32_t>(texts_.size()); }
    /// About how many bytes of memory it takes.
    std::size_t bytes() const { return bytes_; }

  private:
    static constexpr std::size_t kOverhead = 80;

    std::deque<std::string> texts_;  // an address never changes
    std::unordered_map<std::string_view, std::uint32_t> numbers_;
    std::size_t bytes_ = 0;
};

}  // namespace orvent::history
