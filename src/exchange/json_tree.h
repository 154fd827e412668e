#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/bad_document.h"
#include "exchange/keys.h"

namespace orvent::exchange {

enum class JsonKind : std::uint8_t { null, boolean, integer, unsignedInteger, real, text, array, object };

/// What stands in a document, before anything is known of its meaning: all values one behind the other, each in front
/// of what it holds. A value is meant by its place, and the root's place is 0.
class JsonTree {
  public:
    using Place = std::uint32_t;
    static constexpr Place kNowhere = UINT32_MAX;

    /// Reads a text. Throws a `BadDocument` with line and column for what is no JSON, and with the path for
    /// values that are nested too deep.
    explicit JsonTree(std::string_view text);

    JsonKind kind(Place at) const { return values_[at].kind; }
    Key key(Place at) const { return values_[at].key; }
    std::string_view text(Place at) const { return {texts_.data() + values_[at].span.start, values_[at].span.length}; }
    std::int64_t integer(Place at) const { return values_[at].integer; }
    float real(Place at) const { return values_[at].real; }
    bool boolean(Place at) const { return values_[at].integer != 0; }

    /// The member of an object, or `kNowhere`.
    Place member(Place object, Key key) const;

    /// Runs `step(place)` for each item of an array or each member of an object.
    template <class Step>
    void each(Place at, Step step) const {
        for (Place item = at + 1; item < values_[at].end; item = values_[item].end) {
            step(item);
        }
    }

    /// Where a value stands, as in "nodes[3].inputs[2].type"; empty for the root.
    std::string path(Place at) const;

    /// Throws a `BadDocument` for a member that the object may not have, and for one that is there twice.
    void allowOnly(Place object, std::uint64_t keys) const;

    /// Throws a `BadDocument` of the path and these words.
    [[noreturn]] void refuse(Place at, const std::string& words) const;

    /// Throws a `BadDocument` for the first member in the text that no document has.
    void refuseUnknown() const;

  private:
    friend class TreeBuilder;

    /// Part of `texts_`.
    struct Span {
        std::uint32_t start, length;
    };
    struct Value {
        JsonKind kind;
        Key key;
        std::uint32_t end;  ///< behind the last one that it holds; `kNowhere` while that is not known
        union {
            std::int64_t integer;
            float real;
            Span span;
        };
    };

    std::vector<Value> values_;
    std::string texts_;
    Place unknown_ = kNowhere;  ///< the first member that bears no known key
    std::string unknownKey_;
};

}  // namespace orvent::exchange
