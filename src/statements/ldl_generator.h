#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/canvas.h"
#include "entities/nodes.h"
#include "statements/ldl_sources.h"
#include "statements/ldl_variables.h"
#include "statements/replace_all.h"

namespace orvent::statements {

/// The name with its first letter in lower case. An empty name is a `Fault`.
std::string FirstCapitalReplacer(const std::string& name);

/// What a loop's header says: the loop variable runs from `From` to `To`, both included.
struct LoopHeader {
    std::int16_t From = 0;
    std::int16_t To = 0;
    std::string Operator;  ///< "<", "=" or "ERROR"
    std::string LoopVariable;
};

/// Turns a template into the statement of an activity, by three passes of plain text replacement; their order is part
/// of the template language. A fault never leaves the generator: it ends its pass and shows in the text.
class LDLGenerator {
  public:
    LDLGenerator(const LDLVariableCollection& variables, const LDLsourceColl& sources,
                 const entities::Act_OutputsCollection& outputsView, const entities::ActivityProperties& activity,
                 const canvas::Canvas& form)
        : variables_(variables), sources_(sources), outputsView_(outputsView), activity_(activity), form_(form) {}

    /// With it on, a token such as "A_IN1_1" is not taken where a further digit follows, so that ten attributes and
    /// more have names of their own.
    bool WholeNumbers = false;

    /// A statement, and why passes ended before the end of the text; a whole statement has no fault.
    struct Statement {
        std::string text;
        std::vector<std::string> faults;
    };
    Statement GenerateLDL(const std::string& text) const;

    /// First pass: every loop "[header]{body}" becomes its repetitions, the outermost first. Equal loops are replaced
    /// together. A fault gives a text that begins "CRITICAL ERROR AT POSITION: " instead.
    std::string ExpandLoops(const std::string& text) const;

    /// Second pass: every "@name" and "@name[index]" becomes what its variable says, at all its occurrences at once -
    /// also where it is the head of a longer name. A fault ends the pass at that place.
    std::string ReplaceVariables(const std::string& text) const;

    /// Third pass: the names of the activity's predicates and attributes, in any mix of upper and lower case.
    std::string ReplaceActivityNames(std::string text) const;

    /// The value of a loop's bound: terms joined by "+" and "-". It never fails: what cannot be read ends it at the
    /// value reached so far.
    std::int16_t EvalArityExpression(std::string_view expression) const;

    /// Where the terms of the expression lie between: 0, the 1-based positions of the signs, the length plus 1.
    static std::vector<std::size_t> SplitArityExpression(std::string_view expression);

    /// How many characters from the "[" at the 0-based `at` to the "}" that closes the loop, both included; 0 or less
    /// when there is none.
    static std::ptrdiff_t FindLoopSpan(std::size_t at, std::string_view text);

    LoopHeader ParseLoopHeader(std::string_view head) const;

    /// The repetitions of one loop. Throws a `Fault` beyond `kMostCharacters`.
    std::string ExpandLoop(std::string_view span) const;

    /// What an "@" reference becomes, and how many bytes of the text it takes, "@" included.
    struct Replacement {
        std::string text;
        std::size_t length;
    };
    /// The reference at the 0-based offset `at`. Throws a `Fault` when it cannot be told.
    Replacement replacementAt(std::string_view text, std::size_t at) const;

  private:
    // The passes, which tell by what fault they ended.
    std::string expandLoops(const std::string& text, std::string& fault) const;
    std::string replaceVariables(const std::string& text, std::string& fault) const;
    std::string replaceActivityNames(std::string text, std::string& fault) const;
    int termValue(std::string_view term) const;
    std::string valueOf(const LDLVariable& holder, const std::string& token) const;
    std::string recordSetField(const LDLVariable& holder) const;

    const LDLVariableCollection& variables_;
    const LDLsourceColl& sources_;
    const entities::Act_OutputsCollection& outputsView_;
    const entities::ActivityProperties& activity_;
    const canvas::Canvas& form_;
};

}  // namespace orvent::statements
