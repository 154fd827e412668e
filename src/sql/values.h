#pragma once

#include <string>
#include <vector>

#include "entities/name_tables.h"
#include "program/types.h"
#include "rules/syntax.h"
#include "sql/dialect.h"
#include "sql/own_functions.h"

namespace orvent::sql {

using program::Family;

/// A value in SQL, and how it is compared. It may stand beside any operator without brackets.
struct Value {
    std::string sql;
    Family family = Family::unknown;
};

/// Whether a name needs no quotes in any database but for the words that it reserves.
bool isPlainName(std::string_view name);

/// The values of one dialect.
class Values {
  public:
    Values(const Dialect& dialect, const entities::CatalogueTables& catalogue, const OwnFunctions& own)
        : dialect_(dialect), catalogue_(catalogue), own_(own) {}

    const Dialect& dialect() const { return dialect_; }
    Family familyOf(std::int16_t type) const;

    /// A number or a constant; `beside` is what it is compared with or goes to, where that is known.
    Value plain(const rules::Term& term, Family beside) const;
    Value null(Family family) const;
    Value text(const std::string& text) const;
    /// A column of a source as a value of that family.
    Value held(const std::string& column, Family family) const;
    /// Whether the value stands as it is for one of that family.
    static bool isAs(const Value& value, Family family) { return family == Family::unknown || value.family == family; }
    /// The value as one of another family, where that is known.
    Value as(const Value& value, Family family) const;

    Value arithmetic(const std::string& op, const std::vector<Value>& parts) const;
    /// A call, as the designer says it, or the dialect; one that neither knows goes by its name.
    Value call(const std::string& function, const std::vector<Value>& inputs) const;
    /// Which of two names of a function tells how it is called: its own, or that of its type.
    const std::string& nameOf(const std::string& function, const std::string& type) const;
    Value aggregate(const std::string& name, const Value& value) const;

    /// A condition; values of different families are compared as texts.
    std::string compared(const Value& left, const std::string& op, const Value& right) const;

  private:
    std::string called(const std::string& function) const;
    Value date(const std::string& text) const;

    const Dialect& dialect_;
    const entities::CatalogueTables& catalogue_;
    const OwnFunctions& own_;
};

}  // namespace orvent::sql
