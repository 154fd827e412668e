#include "rules/printer.h"

#include <algorithm>
#include <string_view>

namespace orvent::rules {

namespace {

std::string quoted(std::string_view text, char quote) {
    std::string result(1, quote);
    for (const char c : text) {
        result.append(c == quote ? 2 : 1, c);
    }
    return result + quote;
}

/// A name as it is, or in backquotes where that would be read as something else.
std::string spelt(const std::string& name, bool plainStart) {
    const bool plain = plainStart && name != "_" && std::all_of(name.begin(), name.end(), isNameLetter);
    return plain ? name : quoted(name, '`');
}

bool startsAsVariable(const std::string& name) {
    return !name.empty() && (name[0] == '_' || (name[0] >= 'A' && name[0] <= 'Z'));
}

bool startsAsName(const std::string& name) {
    return !name.empty() && !(name[0] >= '0' && name[0] <= '9') && name != "not";
}

int strength(const Term& term) {
    if (term.kind != TermKind::arithmetic) {
        return 4;
    }
    return term.parts.size() == 1 ? 3 : term.text == "*" || term.text == "/" ? 2 : 1;
}

std::string part(const Term& term, int least) {
    return strength(term) < least ? "(" + print(term) + ")" : print(term);
}

std::string list(const std::vector<Term>& terms) {
    std::string result;
    for (const Term& term : terms) {
        result += (&term == &terms.front() ? "" : ",") + print(term);
    }
    return result;
}

}  // namespace

std::string print(const Term& term) {
    switch (term.kind) {
        case TermKind::variable:
            return spelt(term.text, startsAsVariable(term.text));
        case TermKind::anonymous:
            return "_";
        case TermKind::number:
            return term.text;
        case TermKind::constant:
            return quoted(term.text, '\'');
        case TermKind::aggregate:
            return spelt(term.text, startsAsName(term.text)) + "<" + print(term.parts.front()) + ">";
        case TermKind::arithmetic:
            break;
    }
    const int own = strength(term);
    return term.parts.size() == 1 ? term.text + part(term.parts[0], own)
                                  : part(term.parts[0], own) + term.text + part(term.parts[1], own + 1);
}

std::string print(const Atom& atom) {
    return spelt(atom.name, startsAsName(atom.name)) + "(" + list(atom.arguments) + ")";
}

std::string print(const Literal& literal) {
    switch (literal.kind) {
        case LiteralKind::atom:
            return print(literal.atom);
        case LiteralKind::negated:
            return "not " + print(literal.atom);
        case LiteralKind::comparison:
            break;
    }
    const bool sign = !literal.op.empty() && literal.op.find_first_not_of("=<>!") == std::string::npos;
    return print(literal.values[0]) + " " + (sign ? literal.op : spelt(literal.op, startsAsName(literal.op))) + " " +
           print(literal.values[1]);
}

std::string print(const Rule& rule) {
    std::string result = print(rule.head);
    for (const Literal& literal : rule.body) {
        result += (&literal == &rule.body.front() ? " <- " : ", ") + print(literal);
    }
    return result + ".";
}

std::string print(const std::vector<Rule>& rules) {
    std::string result;
    for (const Rule& rule : rules) {
        result += print(rule) + "\n";
    }
    return result;
}

}  // namespace orvent::rules
