#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "odbc/dialect_rules.h"
#include "odbc/tokens.h"
#include "odbc/translation.h"

namespace orvent::odbc {

/// The pattern with `name` in the place of every "%".
std::string filled(std::string_view pattern, std::string_view name);

/// Rewrites one statement of the Oracle dialect by a database's rules, token by token.
class Translator {
  public:
    /// `user` is the login's name in upper case. All three must outlive the translator.
    Translator(const DialectRules& rules, const std::string& user, std::string_view sql);

    Translation run();

  private:
    Translation createSequence() const;
    Translation dropSequence() const;
    Translation dropTable() const;
    void rewrite();

    void word(std::size_t& at);
    void keyword(std::size_t& at);
    void name(std::size_t at);
    void bracket(std::string_view symbol);
    void parameter();
    bool sequenceNumber(std::size_t& at);
    bool type(std::size_t& at);
    bool catalogueView(std::size_t at);
    bool function(std::size_t at);
    std::string textType(std::string_view width) const;
    void orderRows();

    std::size_t next(std::size_t at) const;
    bool is(std::size_t at, std::string_view word) const;
    std::size_t wordAt(int count) const;
    std::string quoted(std::string_view name) const;
    std::string sequenceName(std::string_view name) const;
    std::string optionNumber(std::string_view option) const;

    const DialectRules& rules_;
    const std::string& user_;
    std::vector<Token> tokens_;
    Translation result_;

    bool createsTable_ = false;
    bool finished_ = false;          // behind the definition of a table only storage clauses follow
    int depth_ = 0;                  // open brackets
    int parameters_ = 0;             // parameters written
    std::string keyword_;            // the last keyword, in lower case
    std::optional<int> references_;  // the depth of a REFERENCES whose columns are still to come
    int itemWords_ = 0;              // words of the item at hand in the definition of a table
    std::string column_;             // the column that this item defines, or empty
    std::set<std::string> keyColumns_;
    const CatalogueView* view_ = nullptr;
    int sources_ = 0;  // names behind FROM
    bool readsRepository_ = false;
    bool keepsOrder_ = true;  // rows are neither joined to sums nor ordered by the sender
};

}  // namespace orvent::odbc
