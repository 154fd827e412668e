#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvent::sql {

/// What databases say in different words. In each, "{1}" and "{2}" stand for its parts.
enum class Phrase : std::uint8_t {
    heldText,    ///< a column of a source as a text that is compared by its code points
    heldNumber,  ///< the same as a number
    heldDate,
    noText,  ///< NULL as a text
    noNumber,
    noDate,
    text,     ///< a quoted text as a text that is compared by its code points
    oddText,  ///< the same of hexadecimal digits, for texts with a backslash; empty where that means itself
    date,     ///< a quoted date
    numberOfText,
    dateOfText,
    textOfNumber,
    textOfDate,
    quotient,  ///< exact, and NULL where the divisor is 0
    average,
    fromNothing,  ///< behind a list of values without a table
    dropView,     ///< empty where `makeView` replaces it
    makeView,
    keepRows,  ///< keeps the rows of a query in a table for the rest of a script
    dropRows,
    except,  ///< between two queries
    begin,
    setUp,  ///< what a script begins with
};
inline constexpr std::size_t kPhrases = static_cast<std::size_t>(Phrase::setUp) + 1;

/// A function that is said in SQL. Families are letters: "t" text, "n" number, "d" date, "a" any.
struct Function {
    std::string_view name;  ///< in lower case
    std::string_view inputs;
    char result;               ///< "a" is what the first input is
    std::string_view pattern;  ///< with the inputs as "{1}" and so on
};

/// How queries are written for one kind of database.
struct Dialect {
    std::string_view name;   ///< the word that chooses it
    std::string_view title;  ///< as people call it
    char quote;              ///< of names
    std::array<std::string_view, kPhrases> phrases;
    std::span<const Function> functions;  ///< those that differ from the common ones

    std::string_view phrase(Phrase which) const { return phrases[static_cast<std::size_t>(which)]; }
    std::string say(Phrase which, const std::vector<std::string>& parts) const;

    /// A name in quotes.
    std::string quoted(std::string_view identifier) const;
    /// The function of that name, whatever its case, with so many inputs; null when the database knows it at most.
    const Function* function(std::string_view function, std::size_t inputs) const;
};

std::span<const Dialect> dialects();
/// Null when there is none of that name.
const Dialect* dialectNamed(std::string_view name);

/// The pattern with its parts; each may stand in it several times.
std::string filled(std::string_view pattern, const std::vector<std::string>& parts);

}  // namespace orvent::sql
