#include "shell/row_table.h"

#include <algorithm>

#include "platform/letter_case.h"
#include "platform/text.h"
#include "run/row_text.h"

namespace orvent::shell {

using entities::Field;
using entities::FieldRow;

namespace {

/// Whether one value comes before another one.
bool isBefore(const Field& a, const Field& b, bool numbers) {
    if (!a || !b) {
        return !a && b;
    }
    const auto left = numbers ? platform::parseNumber(*a) : std::nullopt;
    const auto right = numbers ? platform::parseNumber(*b) : std::nullopt;
    return left && right ? *left < *right : *a < *b;
}

}  // namespace

void RowTable::filter(const std::string& word) {
    word_ = platform::lowerLetters(word);
    arrange();
}

void RowTable::sort(int column, bool descending) {
    column_ = column;
    descending_ = descending;
    arrange();
}

void RowTable::arrange() {
    shown_.clear();
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        const FieldRow& row = page.rows[at];
        const bool found = word_.empty() || std::any_of(row.begin(), row.end(), [this](const Field& field) {
                               return field && platform::lowerLetters(*field).find(word_) != std::string::npos;
                           });
        if (found) {
            shown_.push_back(at);
        }
    }
    if (column_ < 0 || static_cast<std::size_t>(column_) >= page.columns.size()) {
        return;
    }
    const auto column = static_cast<std::size_t>(column_);
    std::stable_sort(shown_.begin(), shown_.end(), [&](std::size_t a, std::size_t b) {
        const Field& left = page.rows[descending_ ? b : a][column];
        const Field& right = page.rows[descending_ ? a : b][column];
        return isBefore(left, right, page.numbers[column]);
    });
}

canvas::NodeNumber RowTable::nodeOf(std::size_t at) const {
    return at < shown_.size() && !nodes.empty() ? nodes[shown_[at]] : canvas::kNoNode;
}

std::string RowTable::text(char separator, const std::vector<std::size_t>& places) const {
    std::vector<FieldRow> rows;
    if (places.empty()) {
        for (const std::size_t at : shown_) {
            rows.push_back(page.rows[at]);
        }
    }
    for (const std::size_t place : places) {
        rows.push_back(row(place));
    }
    return run::rowText(page.columns, rows, separator);
}

}  // namespace orvent::shell
