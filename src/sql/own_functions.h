#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvent::sql {

/// A function that a designer says in SQL.
struct OwnFunction {
    std::string name;        ///< matched ignoring case
    std::string expression;  ///< with the inputs of a call as "{1}" to "{9}"
};

/// The functions of a designer; they go before those that a dialect has, and are the same for all dialects.
class OwnFunctions {
  public:
    OwnFunctions() = default;
    /// Rows of which both sides are blank are left out. Throws a `Fault` when a row has one side only, a name stands
    /// twice, or a name or an expression has several lines.
    explicit OwnFunctions(const std::vector<OwnFunction>& rows);
    /// Of lines `name = expression`; the lines that are none are passed over.
    static OwnFunctions ofText(std::string_view lines);
    std::string text() const;

    const std::vector<OwnFunction>& rows() const { return rows_; }
    /// Null when it is none of them.
    const OwnFunction* named(std::string_view name) const;

  private:
    std::vector<OwnFunction> rows_;
};

}  // namespace orvent::sql
