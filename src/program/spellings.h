#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "canvas/canvas.h"
#include "program/finding.h"
#include "program/types.h"
#include "rules/words.h"
#include "statements/ldl_sources.h"

namespace orvent::program {

/// A value that the statement of an activity may name, as the tag of a term.
struct NamedValue {
    enum class Kind : std::uint8_t { input, output, constant, other };
    Kind kind = Kind::other;
    int source = 0;          ///< of an input, from 1
    std::size_t column = 0;  ///< of an input its place in its source, of an output its place
    std::int16_t type = -1;  ///< data type, -1 when nothing tells
};

/// Every spelling that generation gives to what an activity's statement may name.
class Spellings {
  public:
    Spellings(const canvas::Canvas& form, const entities::ActivityProperties& activity, const Types& types);
    Spellings(const Spellings&) = delete;

    const rules::Words& words() const { return words_; }
    const std::vector<NamedValue>& values() const { return values_; }

    const std::vector<std::vector<const entities::AttributeProperties*>>& sources() const { return sources_; }
    const std::vector<const entities::AttributeProperties*>& outputs() const { return outputs_; }

    /// The helper of that name; a new one gets the next number.
    int helper(const std::string& name);
    const std::vector<std::string>& helpers() const { return helpers_; }

    /// Names of nodes, there or not, that the statement may have meant.
    const std::vector<std::string>& asked() const { return asked_; }

    /// Some spellings are what the generator itself makes of them.
    bool passes() const { return passes_; }

    /// How the statement calls its outputs, such as "load_out".
    const std::string& outputName() const { return small_; }

  private:
    struct Token {
        std::string token;
        const rules::Word* word;
    };

    int addValue(const NamedValue& value);
    void addMembers(const entities::AttributeProperties& attribute, const NamedValue& value, const std::string& token,
                    const std::string& head);
    void addToken(std::string token, const std::string& spelling, rules::Word word);
    void addCut(const std::vector<std::string>& spelt, std::size_t first);
    void addSources();
    void addOutputs();
    void addConstants();
    template <class List>
    void addRegulators(const List& parameters);
    void addFunctions();
    void addPassed();
    const rules::Word* ask(std::string_view name);
    const rules::Word* keep(rules::Word word);

    const canvas::Canvas& form_;
    const entities::ActivityProperties& activity_;
    const Types& types_;
    rules::Words words_;
    std::vector<NamedValue> values_;
    std::vector<std::vector<const entities::AttributeProperties*>> sources_;
    std::vector<const entities::AttributeProperties*> outputs_;
    std::vector<Token> tokens_;  ///< of the generator's last pass
    bool passes_ = false;        ///< that pass may give other spellings than the plain ones
    std::string small_;
    std::vector<std::string> helpers_;
    std::unordered_map<std::string, int> helperNumbers_;
    std::deque<rules::Word> kept_;
    std::vector<std::string> asked_;
};

/// What is wrong with the spelling of a node's own name.
std::vector<Finding> nameFindings(const canvas::Canvas& form, const canvas::LabelsD& node);
/// The names that have the same spelling as another one, and are others.
std::vector<std::string> twinsOf(const std::string& name);

}  // namespace orvent::program
