#pragma once

#include <string>
#include <vector>

#include "rules/syntax.h"

namespace orvent::rules {

/// Texts that are read as the same again; a known word by its meaning.
std::string print(const Term& term);
std::string print(const Atom& atom);
std::string print(const Literal& literal);
std::string print(const Rule& rule);
/// One rule a line.
std::string print(const std::vector<Rule>& rules);

}  // namespace orvent::rules
