#include "odbc/tokens.h"

#include <cstddef>

namespace orvent::odbc {

namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isWord(char c) {
    // Bytes above 127 belong to letters outside ASCII.
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' || c == '$' || c == '#' ||
           (static_cast<unsigned char>(c) & 0x80U) != 0;
}

bool isNumber(char c) {
    return isDigit(c) || c == '.';
}

std::size_t endOf(std::string_view sql, std::size_t start, bool (*belongs)(char)) {
    std::size_t end = start + 1;
    while (end < sql.size() && belongs(sql[end])) {
        ++end;
    }
    return end;
}

/// The position behind the closing quote; a doubled quote stands for itself.
std::size_t endOfQuoted(std::string_view sql, std::size_t start) {
    const char quote = sql[start];
    for (std::size_t i = start + 1; i < sql.size(); ++i) {
        if (sql[i] != quote) {
            continue;
        }
        if (i + 1 < sql.size() && sql[i + 1] == quote) {
            ++i;
        } else {
            return i + 1;
        }
    }
    return sql.size();
}

}  // namespace

std::vector<Token> tokenise(std::string_view sql) {
    std::vector<Token> tokens;
    std::size_t i = 0;
    while (i < sql.size()) {
        const char c = sql[i];
        TokenKind kind = TokenKind::symbol;
        std::size_t end = i + 1;
        if (isSpace(c)) {
            kind = TokenKind::space;
            end = endOf(sql, i, isSpace);
        } else if (c == '\'' || c == '"') {
            kind = c == '"' ? TokenKind::quotedName : TokenKind::literal;
            end = endOfQuoted(sql, i);
        } else if (isDigit(c)) {
            kind = TokenKind::number;
            end = endOf(sql, i, isNumber);
        } else if (isWord(c)) {
            kind = TokenKind::word;
            end = endOf(sql, i, isWord);
        } else if (c == '?') {
            kind = TokenKind::parameter;
        }
        tokens.push_back({kind, sql.substr(i, end - i)});
        i = end;
    }
    return tokens;
}

}  // namespace orvent::odbc
