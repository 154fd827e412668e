#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvent::editors {

/// A column as a text tells it; the type is empty when the text names none.
struct ColumnText {
    std::string name, type;

    bool operator==(const ColumnText&) const = default;
};

/// Reads columns from a text that somebody wrote for a database or for people: lines of a name and a type, or the
/// column list of the first `CREATE TABLE` statement in it. Types keep their size, without blanks; what else a line
/// says of its column, constraints and comments are passed over. Quoted names lose their quotes. Nothing is refused:
/// what looks like no column is no column.
std::vector<ColumnText> readColumns(std::string_view text);

}  // namespace orvent::editors
