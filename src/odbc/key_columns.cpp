#include "odbc/key_columns.h"

#include <algorithm>
#include <iterator>

#include "platform/text.h"

namespace orvent::odbc {

bool isConstraint(std::string_view word) {
    static constexpr std::string_view kConstraints[] = {"constraint", "primary", "foreign", "unique", "check"};
    return std::find(std::begin(kConstraints), std::end(kConstraints), word) != std::end(kConstraints);
}

std::set<std::string> keyColumnsOf(const std::vector<Token>& tokens) {
    std::set<std::string> columns;
    // An item of the definition that holds PRIMARY, FOREIGN or REFERENCES makes keys of the columns in its first
    // brackets, or without brackets of the column that it defines.
    int depth = 0;
    bool key = false;
    bool listed = false;
    std::string first;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const std::string lower = platform::lowerCase(tokens[at].text);
        depth += lower == "(" ? 1 : lower == ")" ? -1 : 0;
        if (depth == 1 && (lower == "(" || lower == ",")) {
            key = listed = false;
            first.clear();
        }
        if (depth == 1 && listed && lower == ")") {
            key = false;  // what follows is the other table's
        }
        if (tokens[at].kind != TokenKind::word || depth == 0) {
            continue;
        }
        const bool constraint = isConstraint(first);
        if (first.empty()) {
            first = lower;
        }
        if (depth == 1 && (lower == "primary" || lower == "foreign" || (lower == "references" && !constraint))) {
            key = true;
            if (!isConstraint(first)) {
                columns.insert(first);
            }
        } else if (depth == 2 && key && constraint) {
            listed = true;
            columns.insert(lower);
        }
    }
    return columns;
}

}  // namespace orvent::odbc
