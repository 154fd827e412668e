#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rules/syntax.h"
#include "rules/words.h"

namespace orvent::rules {

/// Why a text is no rules, and where.
struct SyntaxFault {
    Place place;
    std::string words;
};

struct Parsed {
    std::vector<Rule> rules;  ///< up to the fault, if there is one
    std::optional<SyntaxFault> fault;
    std::vector<SyntaxFault> ambiguous;  ///< words with two meanings, where they stand; the first meaning was taken
};

/// Reads rules: "head(X,sum<Y>) <- p(X,Y), not q(X), f(X,2,Z), Z+1 >= 'text'." A name that begins with a capital or "_"
/// is a variable, any other one in the place of a value is a text. Names of other letters stand in backquotes. `words`
/// go before all of that, also behind a head such as "OTHER_" that a template has put before one.
Parsed parse(std::string_view text, const Words* words = nullptr);

}  // namespace orvent::rules
