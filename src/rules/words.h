#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "rules/syntax.h"

namespace orvent::rules {

enum class WordKind : unsigned char {
    variable,
    constant,
    name,  ///< of a predicate or a function; it stands before "("
};

/// What a spelling means.
struct Word {
    WordKind kind = WordKind::variable;
    std::string text;        ///< the name, or the constant's value
    int tag = -1;            ///< whatever the one who knows the word likes to find at it again
    bool ambiguous = false;  ///< two things have this spelling; `text` and `tag` are those of the first
};

/// Words that are read as a whole whatever letters they are made of, such as names with blanks.
class Words {
  public:
    /// What these words do not hold is looked for in `beyond`, which outlives them.
    explicit Words(const Words* beyond = nullptr) : beyond_(beyond) {}

    /// An empty spelling is none. A second meaning makes the word ambiguous. Gives the word of that spelling, which
    /// stays where it is; null for none.
    const Word* add(std::string_view spelling, Word word);

    /// Gives the word that a text before "(" is, or nothing; the word outlives these words.
    using Ask = std::function<const Word*(std::string_view)>;
    /// Whom to ask where no name is known.
    void setAsk(Ask ask) { ask_ = std::move(ask); }

    struct Found {
        const Word* word;
        std::size_t length;  ///< of the spelling, in bytes
    };
    /// The longest name, or value, at that offset that ends where a word may end.
    std::optional<Found> nameAt(std::string_view text, std::size_t offset) const;
    std::optional<Found> valueAt(std::string_view text, std::size_t offset) const { return at(1, text, offset); }

    /// Whether some values are made of more than the letters of a name.
    bool hasOddValues() const { return !tables_[1].oddLengths.empty() || (beyond_ && beyond_->hasOddValues()); }

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };
    struct Table {
        std::unordered_map<std::string, Word, Hash, std::equal_to<>> words;
        std::vector<std::size_t> oddLengths;  ///< of words with other letters than those of a name, descending

        const Word* find(std::string_view spelling) const;
    };
    std::optional<Found> at(std::size_t table, std::string_view text, std::size_t offset) const;

    const Words* beyond_;
    Ask ask_;
    std::array<Table, 2> tables_;  ///< names, and values: a name and a value may have one spelling
};

}  // namespace orvent::rules
