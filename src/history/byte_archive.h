#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "history/bad_bytes.h"
#include "history/text_pool.h"

namespace orvent::history {

// One description of a record's fields writes and reads it. Numbers take as many bytes as they need, seven bits in
// each; those with a sign are folded so that small ones stay short.

/// Appends what it is given.
class ByteWriter {
  public:
    static constexpr bool kReads = false;

    ByteWriter(std::string& out, TextPool& texts) : out_(out), texts_(texts) {}

    void count(std::uint64_t value) {
        for (; value >= 0x80; value >>= 7) {
            out_.push_back(static_cast<char>(value | 0x80));
        }
        out_.push_back(static_cast<char>(value));
    }
    void field(const std::string& text) { count(texts_.number(text)); }
    void field(float value) {
        const auto bits = std::bit_cast<std::uint32_t>(value);
        for (unsigned shift = 0; shift < 32; shift += 8) {
            out_.push_back(static_cast<char>(bits >> shift));
        }
    }
    template <class Number>
    requires std::is_integral_v<Number> || std::is_enum_v<Number>
    void field(Number value) {
        const auto wide = static_cast<std::int64_t>(value);
        count((static_cast<std::uint64_t>(wide) << 1) ^ static_cast<std::uint64_t>(wide >> 63));
    }

  private:
    std::string& out_;
    TextPool& texts_;
};

/// Reads what a `ByteWriter` has written, any bytes; throws `BadBytes`.
class ByteReader {
  public:
    static constexpr bool kReads = true;

    ByteReader(std::string_view bytes, const TextPool& texts) : bytes_(bytes), texts_(texts) {}

    std::uint64_t count() {
        std::uint64_t value = 0;
        for (unsigned shift = 0; shift < 64; shift += 7) {
            const auto byte = static_cast<unsigned char>(next());
            value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
            if (byte < 0x80) {
                return value;
            }
        }
        throw BadBytes();
    }
    /// How many things follow, each of which takes a byte at least.
    std::size_t listed() {
        const std::uint64_t value = count();
        if (value > bytes_.size()) {
            throw BadBytes();
        }
        return static_cast<std::size_t>(value);
    }
    void field(std::string& text) {
        const std::uint64_t number = count();
        if (number >= texts_.size()) {
            throw BadBytes();
        }
        text = texts_.text(static_cast<std::uint32_t>(number));
    }
    void field(float& value) {
        std::uint32_t bits = 0;
        for (unsigned shift = 0; shift < 32; shift += 8) {
            bits |= static_cast<std::uint32_t>(static_cast<unsigned char>(next())) << shift;
        }
        value = std::bit_cast<float>(bits);
    }
    template <class Number>
    requires std::is_integral_v<Number> || std::is_enum_v<Number>
    void field(Number& value) {
        const std::uint64_t folded = count();
        const auto wide = static_cast<std::int64_t>((folded >> 1) ^ (0 - (folded & 1)));
        value = static_cast<Number>(wide);
        if (static_cast<std::int64_t>(value) != wide) {
            throw BadBytes();
        }
    }
    bool atEnd() const { return bytes_.empty(); }

  private:
    char next() {
        if (bytes_.empty()) {
            throw BadBytes();
        }
        const char byte = bytes_.front();
        bytes_.remove_prefix(1);
        return byte;
    }

    std::string_view bytes_;
    const TextPool& texts_;
};

}  // namespace orvent::history
