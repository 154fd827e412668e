#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include "exchange/json_tree.h"
#include "exchange/words.h"

namespace orvent::exchange {

/// Takes values of a document as what they have to be. Every step throws a `BadDocument` with the path of a value that
/// is something else.
class ValueReader {
  public:
    using Place = JsonTree::Place;

    explicit ValueReader(const JsonTree& tree) : tree_(tree) {}

    const JsonTree& tree() const { return tree_; }

    /// The member, which must be there.
    Place required(Place object, Key key) const;

    /// Sees to an object that has no other members than these.
    void object(Place at, std::uint64_t keys) const;

    std::string text(Place at) const { return std::string(view(at)); }
    /// The same while the tree lives.
    std::string_view view(Place at) const;
    /// A text, or a list of its lines.
    std::string lines(Place at) const;
    bool boolean(Place at) const;
    std::int64_t integer(Place at, std::int64_t least, std::int64_t most) const;
    std::int16_t small(Place at) const {
        using Limits = std::numeric_limits<std::int16_t>;
        return static_cast<std::int16_t>(integer(at, Limits::min(), Limits::max()));
    }
    /// A number of twips, at most `most` from 0.
    float twips(Place at, float most) const;
    /// A number of 64 bits in hexadecimal.
    std::uint64_t mark(Place at) const;

    /// A code by its word, or by its number.
    template <class Code>
    Code code(Place at) const {
        if (tree_.kind(at) == JsonKind::text) {
            if (const auto code = codeOf<Code>(tree_.text(at))) {
                return *code;
            }
            tree_.refuse(at, "there is no \"" + text(at) + "\" here");
        }
        if (tree_.kind(at) != JsonKind::integer) {
            wrongKind(at, "a word or a number");
        }
        return static_cast<Code>(small(at));
    }

    /// Runs `step(place)` for each item of a list.
    template <class Step>
    void each(Place list, Step step) const {
        if (tree_.kind(list) != JsonKind::array) {
            wrongKind(list, "a list");
        }
        tree_.each(list, step);
    }
    /// The same for a member that need not be there.
    template <class Step>
    void eachOf(Place object, Key key, Step step) const {
        if (const Place list = tree_.member(object, key); list != JsonTree::kNowhere) {
            each(list, step);
        }
    }

    // The value of a member, or one that stands for its absence.

    std::string linesOf(Place object, Key key) const {
        const Place at = tree_.member(object, key);
        return at == JsonTree::kNowhere ? std::string() : lines(at);
    }
    std::string textOf(Place object, Key key, std::string_view otherwise = {}) const {
        const Place at = tree_.member(object, key);
        return std::string(at == JsonTree::kNowhere ? otherwise : view(at));
    }
    std::int16_t smallOf(Place object, Key key, std::int16_t otherwise = 0) const {
        const Place at = tree_.member(object, key);
        return at == JsonTree::kNowhere ? otherwise : small(at);
    }
    template <class Code>
    Code codeOr(Place object, Key key, Code otherwise) const {
        const Place at = tree_.member(object, key);
        return at == JsonTree::kNowhere ? otherwise : code<Code>(at);
    }

    [[noreturn]] void wrongKind(Place at, const char* expected) const;

  private:
    const JsonTree& tree_;
};

}  // namespace orvent::exchange
