#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entities/nodes.h"

namespace orvent::exchange {

/// A name, and the one that stands for it in a copy.
struct NamePair {
    std::string former, now;
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

    /// A record set of the copy, with its attributes; and another name that is not expected in this statement.
    void addRecordSet(const NamePair& name, const entities::RecordSetProperties& recordSet);
    void addOther(const NamePair& name) { renamed_.push_back(name); }

    /// The statement with the new names; nothing where it is not certain what a name in it means, which `why` tells.
    std::optional<std::string> rewritten(const std::string& text, std::string& why) const;

  private:
    /// What a place of a text is replaced by, and how many bytes of the text that takes.
    struct Match {
        std::size_t length = 0;
        std::string text;
    };

    static std::vector<std::string> namesOf(const entities::ActivityProperties& activity, bool inputs);
    void addWord(const std::string& former, const std::string& now) { words_.push_back({former, now}); }
    Match memberAt(std::string_view text, std::string_view infix, const std::vector<NamePair>& members) const;
    Match predicateAt(std::string_view text) const;
    std::vector<Match> matchesAt(std::string_view text) const;
    const NamePair* heldBy(std::string_view word) const;

    NamePair name_;
    std::vector<NamePair> inputs_, outputs_;
    std::vector<NamePair> functions_;
    std::vector<NamePair> words_;    ///< what stands as a whole word, in the spellings of the generator
    std::vector<NamePair> renamed_;  ///< all that bears another name; where else it is named nothing is certain
};

}  // namespace orvent::exchange
