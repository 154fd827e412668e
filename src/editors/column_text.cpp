#include "editors/column_text.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "platform/text.h"

namespace orvent::editors {

namespace {

using platform::equalIgnoringCase;

/// A word, a sign, or what stands between quotes.
struct Piece {
    std::string text;
    bool quoted = false;
    bool lineEnd = false;
};

/// Words that end the type of a column.
constexpr std::array<std::string_view, 19> kBehindType = {
    "NOT",     "NULL",      "DEFAULT", "PRIMARY",        "UNIQUE", "CHECK",   "REFERENCES", "CONSTRAINT",
    "COLLATE", "GENERATED", "COMMENT", "AUTO_INCREMENT", "ENABLE", "DISABLE", "AS",         "INVISIBLE",
    "VISIBLE", "IDENTITY",  "ON"};

/// Words with which a constraint begins where a column might stand.
constexpr std::array<std::string_view, 7> kConstraints = {"CONSTRAINT", "PRIMARY", "FOREIGN", "UNIQUE",
                                                          "CHECK",      "EXCLUDE", "LIKE"};

template <std::size_t count>
bool isOneOf(const std::array<std::string_view, count>& words, const Piece& piece) {
    return !piece.quoted && std::any_of(words.begin(), words.end(),
                                        [&](std::string_view word) { return equalIgnoringCase(word, piece.text); });
}

bool is(const Piece& piece, std::string_view text) {
    return !piece.quoted && equalIgnoringCase(piece.text, text);
}

class Splitter {
  public:
    explicit Splitter(std::string_view text) : text_(text) {}

    std::vector<Piece> split() {
        while (at_ < text_.size()) {
            step();
        }
        return std::move(pieces_);
    }

  private:
    void step() {
        const char sign = text_[at_];
        const std::string_view rest = text_.substr(at_);
        if (sign == '\n') {
            add("\n", 1);
            pieces_.back().lineEnd = true;
        } else if (rest.starts_with("--")) {
            at_ = std::min(text_.find('\n', at_), text_.size());
        } else if (rest.starts_with("/*")) {
            const std::size_t end = text_.find("*/", at_);
            at_ = end == std::string_view::npos ? text_.size() : end + 2;
        } else if (std::isspace(static_cast<unsigned char>(sign))) {
            ++at_;
        } else if (sign == '"' || sign == '`' || sign == '\'') {
            quoted(sign);
        } else if (sign == '[') {
            quoted(']');
        } else if (isWordSign(sign)) {
            const std::size_t length = std::min(
                static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), isWordSign) - rest.begin()),
                rest.size());
            add(std::string(rest.substr(0, length)), length);
        } else {
            add(std::string(1, sign), 1);
        }
    }

    static bool isWordSign(char sign) {
        const auto letter = static_cast<unsigned char>(sign);
        return std::isalnum(letter) || letter >= 0x80 || sign == '_' || sign == '$' || sign == '#' || sign == '.';
    }

    void add(std::string text, std::size_t length) {
        pieces_.push_back({std::move(text)});
        at_ += length;
    }

    void quoted(char close) {
        const std::size_t end = std::min(text_.find(close, at_ + 1), text_.size());
        add(std::string(text_.substr(at_ + 1, end - at_ - 1)), std::min(end + 1, text_.size()) - at_);
        pieces_.back().quoted = true;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::vector<Piece> pieces_;
};

using Pieces = std::vector<Piece>;
using At = Pieces::const_iterator;

/// Behind the parenthesis that closes the one at `at`.
At behindParentheses(At at, At end) {
    int depth = 0;
    for (; at != end; ++at) {
        depth += is(*at, "(") ? 1 : is(*at, ")") ? -1 : 0;
        if (depth == 0) {
            return at + 1;
        }
    }
    return end;
}

/// Words of a type, with a size and without the blanks in it: "NUMBER(10,2)", "TIMESTAMP(6) WITH TIME ZONE".
std::string typeFrom(At at, At end) {
    std::string type;
    while (at != end && !isOneOf(kBehindType, *at) && !is(*at, ",") && !is(*at, ";")) {
        if (is(*at, "(")) {
            const At behind = behindParentheses(at, end);
            const Piece* former = nullptr;
            for (; at != behind; ++at) {
                const bool words = former && std::isalnum(static_cast<unsigned char>(former->text.back())) &&
                                   std::isalnum(static_cast<unsigned char>(at->text.front()));
                type += (words ? " " : "") + at->text;
                former = &*at;
            }
        } else {
            type += (type.empty() ? "" : " ") + at->text;
            ++at;
        }
    }
    return type;
}

void addColumn(At at, At end, std::vector<ColumnText>& columns) {
    if (at == end || isOneOf(kConstraints, *at) || at->text.empty()) {
        return;
    }
    const unsigned char first = static_cast<unsigned char>(at->text.front());
    if (!at->quoted && !std::isalnum(first) && first < 0x80 && first != '_') {
        return;
    }
    std::string name = at->text;
    ++at;
    if (at != end && (is(*at, ":") || is(*at, ","))) {
        ++at;
    }
    columns.push_back({std::move(name), typeFrom(at, end)});
}

/// Where the column list of the first statement that creates a table begins, or `end`.
At tableBegin(At at, At end) {
    bool creates = false, table = false;
    for (; at != end; ++at) {
        creates = creates || is(*at, "CREATE");
        table = table || (creates && is(*at, "TABLE"));
        if (table && is(*at, "(")) {
            return at;
        }
        if (is(*at, ";")) {
            creates = table = false;
        }
    }
    return end;
}

std::vector<ColumnText> columnsOfTable(At open, At end) {
    std::vector<ColumnText> columns;
    Pieces item;
    const At close = behindParentheses(open, end);
    const auto finish = [&] {
        addColumn(item.begin(), item.end(), columns);
        item.clear();
    };
    int depth = 0;
    for (At at = open; at != close; ++at) {
        const int before = depth;
        depth += is(*at, "(") ? 1 : is(*at, ")") ? -1 : 0;
        if (depth == 0 || (depth == 1 && is(*at, ","))) {
            finish();
        } else if (before > 0 && !at->lineEnd) {
            item.push_back(*at);
        }
    }
    finish();  // of a statement that breaks off
    return columns;
}

}  // namespace

std::vector<ColumnText> readColumns(std::string_view text) {
    const Pieces pieces = Splitter(text).split();
    if (const At open = tableBegin(pieces.begin(), pieces.end()); open != pieces.end()) {
        return columnsOfTable(open, pieces.end());
    }
    std::vector<ColumnText> columns;
    for (At at = pieces.begin(); at != pieces.end();) {
        const At end = std::find_if(at, pieces.end(), [](const Piece& piece) { return piece.lineEnd; });
        addColumn(at, end, columns);
        at = end == pieces.end() ? end : end + 1;
    }
    return columns;
}

}  // namespace orvent::editors
