#include "statements/sql_keyword_checker.h"

#include <algorithm>
#include <array>

#include "platform/text.h"
#include "statements/sql_creator.h"

namespace orvent::statements {

namespace {

constexpr std::array<std::string_view, 37> kKeywords = {
    "SELECT",     "FROM",       "WHERE",  "AS",     "=",       "NOT",     "GROUP",  "BY",     "NULL",  "HAVING",
    "LIKE",       "OR",         "ON",     "TO",     "INTO",    "AND",     "IN",     "EXISTS", "UNION", "ADD",
    "Drop",       "Table",      "Update", "GRANT",  "Index",   "Session", "Insert", "Values", "View",  "Alter",
    "Constraint", "References", "Create", "COMMIT", "Foreign", "Primary", "Key"};

constexpr int kDelete = 0x2E;
// Space, enter, left, up, right, down, backspace, delete.
constexpr std::array<int, 8> kKeys = {0x20, 0x0D, 0x25, 0x26, 0x27, 0x28, 8, kDelete};

/// No keyword and no placeholder is longer; a longer word need not be read.
constexpr std::size_t kLongestWord = 10;

bool isWhite(unsigned char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::size_t wordEnd(const ColouredText& box, std::size_t at) {
    while (at < box.length() && !isWhite(box.at(at))) {
        ++at;
    }
    return at;
}

std::size_t wordStart(const ColouredText& box, std::size_t at) {
    while (at > 0 && !isWhite(box.at(at - 1))) {
        --at;
    }
    return at;
}

}  // namespace

void SQL_KeywordChecker::InitKeywords() {
    keywords_.clear();
    placeholders_.clear();
    for (const std::string_view word : kKeywords) {
        keywords_.insert(platform::upperCase(word));
    }
    for (const std::string_view word : kSqlPlaceholders) {
        placeholders_.emplace(word);
    }
}

bool SQL_KeywordChecker::IsKeyword(std::string_view word) const {
    return keywords_.contains(platform::upperCase(word));
}

bool SQL_KeywordChecker::IsPlaceholder(std::string_view word) const {
    return placeholders_.contains(platform::upperCase(word));
}

/// True when the word is a keyword or a placeholder, and was coloured.
bool SQL_KeywordChecker::colourWord(ColouredText& box, std::size_t from, std::size_t end, Letters letters) const {
    if (end - from > kLongestWord) {
        return false;
    }
    std::string word;
    for (std::size_t at = from; at < end; ++at) {
        word += static_cast<char>(box.at(at));
    }
    const bool keyword = IsKeyword(word);
    if (!keyword && !IsPlaceholder(word)) {
        return false;
    }
    const std::string upper = platform::upperCase(word);
    if (letters == Letters::upper && upper != word) {
        box.setLetters(from, upper);
    }
    box.paint(from, end - from, keyword ? kKeywordColour : kPlaceholderColour, true);
    return true;
}

void SQL_KeywordChecker::txtSQL_KeyDown(int key, bool shift, ColouredText& box, Letters letters) const {
    if (shift || std::find(kKeys.begin(), kKeys.end(), key) == kKeys.end()) {
        return;
    }
    const std::size_t caret = std::min(box.caret(), box.length());
    // Delete takes what stands behind the caret, so only that is looked at.
    const std::size_t from = key == kDelete ? caret : wordStart(box, caret);
    const std::size_t end = wordEnd(box, caret);
    if (from < end && !colourWord(box, from, end, letters)) {
        box.paint(from, end - from, kPlainColour, false);
    }
    box.typeIn(kPlainColour, false);
}

void SQL_KeywordChecker::ColourText(ColouredText& box, Letters letters) const {
    if (box.length() > 0) {
        box.paint(0, box.length(), kPlainColour, false);
    }
    for (std::size_t at = 0; at < box.length();) {
        const std::size_t end = wordEnd(box, at);
        if (end > at) {
            colourWord(box, at, end, letters);
        }
        at = end + 1;
    }
    box.typeIn(kPlainColour, false);
}

}  // namespace orvent::statements
