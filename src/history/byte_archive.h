#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "history/bad_bytes.h"
#include "history/short_numbers.h"
#include "history/text_pool.h"

namespace orvent::history {

// One description of a record's fields writes and reads it. A text is told by how far its number in the pool lies from
// that of the text before: those of one record were added together as a rule.

/// Appends what it is given.
class ByteWriter {
  public:
    static constexpr bool kReads = false;

    ByteWriter(std::string& out, TextPool& texts) : out_(out), texts_(texts) {}

    void count(std::uint64_t value) { appendNumber(out_, value); }
    void field(std::string_view text) {
        const std::int64_t number = texts_.number(text);
        count(folded(number - last_));
        last_ = number;
    }
    void field(const std::string& text) { field(std::string_view(text)); }
    void field(float value) {
        const auto bits = std::bit_cast<std::uint32_t>(value);
        for (unsigned shift = 0; shift < 32; shift += 8) {
            out_.push_back(static_cast<char>(bits >> shift));
        }
    }
    template <class Number>
    requires std::is_integral_v<Number> || std::is_enum_v<Number>
    void field(Number value) { count(folded(static_cast<std::int64_t>(value))); }

  private:
    std::string& out_;
    TextPool& texts_;
    std::int64_t last_ = 0;
};

/// Reads what a `ByteWriter` has written, any bytes; throws `BadBytes`.
class ByteReader {
  public:
    static constexpr bool kReads = true;

    ByteReader(std::string_view bytes, const TextPool& texts) : bytes_(bytes), texts_(texts) {}

    std::uint64_t count() {
        const auto value = takeNumber(bytes_);
        return value ? *value : throw BadBytes();
    }
    /// How many things follow, each of which takes a byte at least.
    std::size_t listed() {
        const std::uint64_t value = count();
        return value <= bytes_.size() ? static_cast<std::size_t>(value) : throw BadBytes();
    }
    void field(std::string& text) {
        const std::int64_t step = unfolded(count());
        if (step < -last_ || step >= texts_.size() - last_) {
            throw BadBytes();
        }
        last_ += step;
        text = texts_.text(static_cast<std::uint32_t>(last_));
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
        const auto read = unfoldedAs<Number>(count());
        value = read ? *read : throw BadBytes();
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
    std::int64_t last_ = 0;
};

}  // namespace orvent::history
