#include "run/row_text.h"

#include <algorithm>
#include <optional>

#include "platform/fault.h"
#include "platform/text.h"

namespace orvent::run {

using entities::Facts;
using entities::Field;
using entities::FieldRow;

namespace {

void appendField(std::string& out, const std::string& text, char separator) {
    const bool plain = !text.empty() && text.find_first_of("\"\r\n") == std::string::npos &&
                       text.find(separator) == std::string::npos && platform::trimmed(text).size() == text.size();
    if (plain) {
        out += text;
        return;
    }
    out += '"';
    for (const char letter : text) {
        out.append(letter == '"' ? 2 : 1, letter);
    }
    out += '"';
}

/// The sign that parts values, by the first one outside quotation marks.
char separatorOf(std::string_view text) {
    bool quoted = false;
    for (const char letter : text) {
        quoted = quoted != (letter == '"');
        if (!quoted && (letter == '\t' || letter == ';' || letter == ',')) {
            return letter;
        }
    }
    return ',';
}

struct Line {
    std::size_t number;  ///< in the text, from 1
    FieldRow fields;
};

/// Reads the lines of a text one by one.
class LineReader {
  public:
    explicit LineReader(std::string_view text) : rest_(text), separator_(separatorOf(text)) {
        constexpr std::string_view kMark = "\xEF\xBB\xBF";
        rest_.remove_prefix(rest_.starts_with(kMark) ? kMark.size() : 0);
    }

    /// Nothing behind the last line. An empty line is none.
    std::optional<Line> next() {
        while (!rest_.empty() && (rest_[0] == '\r' || rest_[0] == '\n')) {
            skipEnd();
        }
        if (rest_.empty()) {
            return std::nullopt;
        }
        Line line{number_, {}};
        do {
            line.fields.push_back(field());
        } while (take(separator_));
        skipEnd();
        return line;
    }

  private:
    bool take(char letter) {
        const bool there = !rest_.empty() && rest_[0] == letter;
        rest_.remove_prefix(there ? 1 : 0);
        return there;
    }

    void skipEnd() {
        const bool returned = take('\r');
        const bool ended = take('\n');
        number_ += returned || ended ? 1 : 0;
    }

    Field field() {
        if (take('"')) {
            return quoted();
        }
        const char ends[] = {separator_, '\r', '\n'};
        const std::size_t end = std::min(rest_.find_first_of(std::string_view(ends, sizeof ends)), rest_.size());
        const std::string text(platform::trimmed(rest_.substr(0, end)));
        rest_.remove_prefix(end);
        return text.empty() ? Field() : Field(text);
    }

    /// What stands up to the quotation mark that ends it, and any letters behind that.
    std::string quoted() {
        std::string text;
        for (bool inside = true; !rest_.empty();) {
            const char letter = rest_[0];
            if (!inside && (letter == separator_ || letter == '\r' || letter == '\n')) {
                break;
            }
            rest_.remove_prefix(1);
            number_ += letter == '\n' ? 1 : 0;
            if (letter != '"') {
                text += letter;
            } else if (inside && take('"')) {
                text += letter;
            } else {
                inside = !inside;
            }
        }
        return text;
    }

    std::string_view rest_;
    char separator_;
    std::size_t number_ = 1;
};

}  // namespace

std::string rowText(const std::vector<std::string>& columns, const std::vector<FieldRow>& rows, char separator) {
    std::string out;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        out.append(column == 0 ? 0 : 1, separator);
        appendField(out, columns[column], separator);
    }
    out += '\n';
    for (const FieldRow& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            out.append(column == 0 ? 0 : 1, separator);
            if (row[column]) {
                appendField(out, *row[column], separator);
            }
        }
        out += '\n';
    }
    return out;
}

Facts factsFrom(std::string_view text, const std::vector<std::string>& columns) {
    Facts facts{columns, {}};
    LineReader lines(text);
    std::optional<Line> line = lines.next();
    std::vector<std::size_t> places;  // where each value of a line goes; behind the last column for nowhere
    const auto placeOf = [&](const Field& name) {
        const auto known = std::find_if(columns.begin(), columns.end(), [&](const std::string& column) {
            return name && platform::equalIgnoringCase(column, *name);
        });
        return static_cast<std::size_t>(known - columns.begin());
    };
    if (line) {
        for (const Field& field : line->fields) {
            places.push_back(placeOf(field));
        }
    }
    const bool named = std::any_of(places.begin(), places.end(), [&](std::size_t at) { return at < columns.size(); });
    if (named) {
        line = lines.next();
    } else {
        places.resize(columns.size());
        for (std::size_t at = 0; at < places.size(); ++at) {
            places[at] = at;
        }
    }
    for (; line; line = lines.next()) {
        if (line->fields.size() > places.size()) {
            throw platform::Fault("Line " + std::to_string(line->number) + " has " +
                                  std::to_string(line->fields.size()) + " values for " + std::to_string(places.size()) +
                                  " columns.");
        }
        FieldRow row(columns.size());
        for (std::size_t at = 0; at < line->fields.size(); ++at) {
            if (places[at] < row.size()) {
                row[places[at]] = std::move(line->fields[at]);
            }
        }
        facts.rows.push_back(std::move(row));
    }
    return facts;
}

std::vector<FieldRow> rowsInOrder(const Facts& facts, const std::vector<std::string>& columns) {
    std::vector<std::size_t> places;
    for (const std::string& column : columns) {
        const auto known = std::find_if(facts.columns.begin(), facts.columns.end(), [&](const std::string& name) {
            return platform::equalIgnoringCase(name, column);
        });
        places.push_back(static_cast<std::size_t>(known - facts.columns.begin()));
    }
    std::vector<FieldRow> rows;
    for (const FieldRow& fact : facts.rows) {
        FieldRow& row = rows.emplace_back();
        for (const std::size_t place : places) {
            row.push_back(place < fact.size() ? fact[place] : Field());
        }
    }
    return rows;
}

}  // namespace orvent::run
