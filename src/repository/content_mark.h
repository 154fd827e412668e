#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace orvent::repository {

/// A number that stands for a sequence of numbers and texts.
class Mark {
  public:
    Mark& number(std::uint64_t value) {
        mark_ = (mark_ ^ value) * 0x9E3779B97F4A7C15U;
        mark_ ^= mark_ >> 29;
        return *this;
    }
    Mark& text(std::string_view value) {
        number(value.size() + 1);
        while (!value.empty()) {
            std::uint64_t part = 0;
            const std::size_t size = std::min(value.size(), sizeof part);
            std::memcpy(&part, value.data(), size);
            number(part);
            value.remove_prefix(size);
        }
        return *this;
    }
    std::uint64_t value() const { return mark_; }

  private:
    std::uint64_t mark_ = 0;
};

}  // namespace orvent::repository
