#pragma once

#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "history/bad_bytes.h"
#include "history/short_numbers.h"

namespace orvent::history {

// A file of states is records one behind the other: a letter, the number of bytes that follow, these, and a sum over
// all of it. What a program that was killed has begun to write is thereby known as such.

constexpr std::size_t kSumBytes = 4;

/// What a record holds.
enum class Record : char {
    begin = 'B',     ///< the format's name and number
    texts = 'T',     ///< texts of the pool, behind those that stand before
    types = 'Y',     ///< the names of the catalogue's types by their index
    scenario = 'S',  ///< the window and what it knows of its store
    rows = 'R',      ///< what the rows of each node were when they were read last
    nodes = 'N',     ///< numbers of nodes, each with the bytes of both of its parts; none when it has gone
    heads = 'H',     ///< the same for nodes that stand for what they stood for
    edges = 'E',     ///< numbers of edges with their states
    about = 'A',     ///< of a state that is kept as it was at the beginning: time and words
    step = 'C',      ///< a command has ended: time and words. Only what stands in front of one counts.
};

/// A record that is being written.
class RecordWriter {
  public:
    RecordWriter(std::string& out, Record kind) : out_(out), kind_(kind) {}
    ~RecordWriter();
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;

    RecordWriter& number(std::uint64_t value);
    RecordWriter& text(std::string_view value) { return number(value.size()).bytes(value); }
    RecordWriter& bytes(std::string_view value) {
        body_ += value;
        return *this;
    }
    /// Of the body as it is.
    std::size_t size() const { return body_.size(); }
    RecordWriter& real(float value) { return number(std::bit_cast<std::uint32_t>(value)); }
    /// A number with a sign, or a code.
    template <class Number>
    RecordWriter& code(Number value) {
        return number(folded(static_cast<std::int64_t>(value)));
    }

  private:
    std::string& out_;
    Record kind_;
    std::string body_;
};

/// The body of one record; throws `BadBytes` where it holds less than is asked for.
class RecordBody {
  public:
    explicit RecordBody(std::string_view bytes) : bytes_(bytes) {}

    std::uint64_t number();
    std::string_view text();
    float real() { return std::bit_cast<float>(static_cast<std::uint32_t>(number())); }
    template <class Number>
    void code(Number& value) {
        const auto read = unfoldedAs<Number>(number());
        value = read ? *read : throw BadBytes();
    }
    bool atEnd() const { return bytes_.empty(); }

  private:
    std::string_view bytes_;
};

/// What a record's first bytes tell of it.
struct RecordHead {
    static constexpr std::size_t kMost = 11;  ///< bytes that it takes itself, at most

    Record kind;
    std::uint64_t size;  ///< bytes of the whole record
};

/// Reads the head of a record. Nothing where the bytes are too few, or are none.
std::optional<RecordHead> recordHead(std::string_view bytes);

/// What a file of states begins with. Throws `BadBytes` where that is another format.
void writeFormat(std::string& out);
void needFormat(RecordBody& body);

/// Walks over the whole records of a text, any bytes. The first one that is not whole ends it.
class RecordReader {
  public:
    explicit RecordReader(std::string_view bytes) : bytes_(bytes) {}

    struct Found {
        Record kind;
        std::string_view body;
    };
    std::optional<Found> next();

  private:
    std::string_view bytes_;
};

}  // namespace orvent::history
