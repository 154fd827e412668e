#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "entities/nodes.h"

namespace orvent::exchange {

/// A name, and the one that stands for it in a copy.
struct NamePair {
    std::string former, now;
};

/// New names of a copy, found at a place of a text.
class NameIndex {
  public:
    /// A spelling of the generator, which stands as a whole word.
    void addWord(const std::string& former, const std::string& now);
    /// What bears another name; where else it is named nothing is certain.
    void addRenamed(const std::string& former, const std::string& now);
    /// A record set that bears another name, with the spellings of it and its attributes. It outlives this index.
    void addRecordSet(const NamePair& name, const entities::RecordSetProperties& recordSet);

    /// The words that the text begins with.
    void wordsAt(std::string_view text, std::vector<NamePair>& found) const;
    /// Whether the text begins with something that bears another name, alone or as the head of a word, in any case.
    bool names(std::string_view text) const;

  private:
    /// By the letters in front of the first one that is none of a name, so that a text tells where to look.
    using ByHead = std::unordered_map<std::string, std::vector<NamePair>>;

    /// A record set is asked for its attributes only where a text names it; most texts name few.
    struct Owner {
        NamePair name;  ///< in upper case, with the "_" that stands in front of an attribute
        const entities::RecordSetProperties* recordSet;
    };

    void attributesAt(std::string_view text, const Owner& owner, std::vector<NamePair>& found) const;

    ByHead words_;
    std::unordered_map<std::string, std::vector<Owner>> owners_;
    ByHead renamed_;  ///< in lower case
};

/// The names in the generated statement of an activity, as the generator spells them. What was generated for an
/// activity Load of a function Sum with a record set AUTHORS holds "load_out", "Load_IN1_ID", "sum", "aUTHORS" and
/// "AUTHORS_NAME".
class StatementNames {
  public:
    /// The activity before anything is renamed; its lists keep their order meanwhile.
    explicit StatementNames(const entities::ActivityProperties& activity);

    /// The activity bears its new names now.
    void follow(const entities::ActivityProperties& activity);

    /// The statement with the new names, `copied` being those of the whole copy; nothing where it is not certain what a
    /// name in it means, which `why` tells.
    std::optional<std::string> rewritten(const std::string& text, const NameIndex& copied, std::string& why) const;

  private:
    /// What a place of a text is replaced by, and how many bytes of the text that takes.
    struct Match {
        std::size_t length = 0;
        std::string text;
        bool operator==(const Match&) const = default;
    };

    Match memberAt(std::string_view text, std::string_view infix, const std::vector<NamePair>& members) const;
    Match predicateAt(std::string_view text) const;
    std::vector<Match> matchesAt(std::string_view text, const NameIndex& copied) const;

    NamePair name_;
    std::vector<NamePair> inputs_, outputs_, functions_;
    NameIndex own_;
};

}  // namespace orvent::exchange
