#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "odbc/translation.h"
#include "platform/database.h"

namespace orvent::odbc {

struct DialectRules;

/// How the statements of the Oracle dialect are put to one database.
class Dialect {
  public:
    /// `user` is the login's name. Without rules statements pass untouched.
    Dialect(const DialectRules* rules, std::string_view user);

    Translation translate(std::string_view sql) const;

    /// A statement that draws the next number of a sequence and answers it in one row. Only for a database whose
    /// translations hold `sequences`.
    std::string nextNumber(std::string_view sequence) const;

    /// A statement to run on every new connection, or empty.
    std::string setUp() const;

    /// A statement by which the session refuses changes from then on, or empty.
    std::string refuseChanges() const;

    /// False for a driver that loses its place when it is asked for a single value of a block of rows.
    bool keepsPlaceInBlock() const;

    /// True where the way to break into a statement is to cancel another one of its connection.
    bool cancelsByAnother() const;

    /// What a column takes that was created with `width` characters.
    platform::TextLimit textLimit(std::size_t width, platform::TextColumn column) const;

  private:
    const DialectRules* rules_;
    std::string user_;
};

}  // namespace orvent::odbc
