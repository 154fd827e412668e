#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "canvas/draw_form.h"
#include "sql/compiler.h"

namespace orvent::run {

/// Where the rows of a record set that nobody feeds come from, and the table of the sample that they go to.
struct Origin {
    std::string table{};
    std::optional<std::vector<entities::FieldRow>> rows{};  ///< by hand, a value for each column
    std::string alias{};                                    ///< of the data source
    std::map<std::string_view, std::string> queries{};      ///< of the data source, by dialect
    std::size_t most = 0;                                   ///< so many of its rows are read

    bool operator==(const Origin&) const = default;
};

/// The rows that are given: those by hand first, else those of the data source. What a target without either held
/// before is nothing.
class Origins : public sql::HeldRows {
  public:
    Origins(const canvas::DrawForm& form, const sql::Dialect& dialect, std::size_t most)
        : form_(form), dialect_(dialect), most_(most) {}

    sql::Held heldBy(const program::Predicate& predicate, std::size_t place) const override;
    /// By predicate, of those that were asked for.
    std::map<std::size_t, Origin>& found() { return found_; }

  private:
    std::string freeName(const std::string& name) const;

    const canvas::DrawForm& form_;
    const sql::Dialect& dialect_;
    std::size_t most_;
    mutable std::map<std::size_t, Origin> found_{};
    mutable std::unordered_set<std::string> taken_{};
};

}  // namespace orvent::run
