#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvent::rules {

/// A place in a text. Lines end with CR LF, LF or CR.
struct Place {
    std::size_t offset = 0;  ///< in bytes
    int line = 1;            ///< from 1
    int column = 1;          ///< from 1, in characters
};

enum class TermKind : unsigned char {
    variable,
    anonymous,   ///< "_": some value, each time another
    number,      ///< `text` as it is written
    constant,    ///< a text, without its quotes
    arithmetic,  ///< `text` is "+", "-", "*" or "/", over two parts, or "-" over one
    aggregate,   ///< `text` is its name, over one part; only in a head
};

/// A value. Two are equal wherever they stand.
struct Term {
    TermKind kind = TermKind::anonymous;
    int tag = -1;  ///< of the known word that it was read from; -1 for any other text
    Place place;
    std::string text;
    std::vector<Term> parts;

    bool operator==(const Term& other) const {
        return kind == other.kind && tag == other.tag && text == other.text && parts == other.parts;
    }
};

/// A predicate or a function over its arguments; the value of a function is its last one.
struct Atom {
    std::string name;
    int tag = -1;  ///< as of a term
    Place place;
    std::vector<Term> arguments;

    bool operator==(const Atom& other) const {
        return name == other.name && tag == other.tag && arguments == other.arguments;
    }
};

enum class LiteralKind : unsigned char { atom, negated, comparison };

/// One condition of a body.
struct Literal {
    LiteralKind kind = LiteralKind::atom;
    Atom atom;                 ///< of an atom and a negated one
    std::string op;            ///< of a comparison, as it is written; it may be no operator at all
    std::vector<Term> values;  ///< its two sides

    Place place() const { return kind == LiteralKind::comparison ? values.front().place : atom.place; }
    bool operator==(const Literal&) const = default;
};

/// The operator that says the same of two values in the other order.
std::string turned(const std::string& op);

/// The head holds for all values for which every literal of the body does.
struct Rule {
    Atom head;
    std::vector<Literal> body;

    bool operator==(const Rule&) const = default;
};

/// "=", "!=", "<>", "<", ">", "<=" or ">=".
bool isOperator(std::string_view text);

/// Whether the letter may stand within a name: a letter of any script, a digit or "_".
constexpr bool isNameLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

}  // namespace orvent::rules
