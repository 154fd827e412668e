#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvent::history {

// Numbers in as many bytes as they need, seven bits in each, the lowest first. Those with a sign are folded so that
// small ones stay short.

inline void appendNumber(std::string& out, std::uint64_t value) {
    for (; value >= 0x80; value >>= 7) {
        out.push_back(static_cast<char>(value | 0x80));
    }
    out.push_back(static_cast<char>(value));
}

/// Takes a number from the front; nothing when there is no whole one.
inline std::optional<std::uint64_t> takeNumber(std::string_view& bytes) {
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 64 && !bytes.empty(); shift += 7) {
        const auto byte = static_cast<unsigned char>(bytes.front());
        bytes.remove_prefix(1);
        value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
        if (byte < 0x80) {
            return value;
        }
    }
    return std::nullopt;
}

constexpr std::uint64_t folded(std::int64_t value) {
    return (static_cast<std::uint64_t>(value) << 1) ^ static_cast<std::uint64_t>(value >> 63);
}

constexpr std::int64_t unfolded(std::uint64_t value) {
    return static_cast<std::int64_t>((value >> 1) ^ (0 - (value & 1)));
}

/// A number or code of some type; nothing when it has no room for the value.
template <class Number>
std::optional<Number> unfoldedAs(std::uint64_t value) {
    const auto number = static_cast<Number>(unfolded(value));
    return static_cast<std::int64_t>(number) == unfolded(value) ? std::optional(number) : std::nullopt;
}

}  // namespace orvent::history
