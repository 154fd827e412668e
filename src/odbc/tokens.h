#pragma once

#include <string_view>
#include <vector>

namespace orvent::odbc {

enum class TokenKind { word, quotedName, literal, number, parameter, symbol, space };

/// A piece of a statement; `text` points into the statement and keeps its quotes.
struct Token {
    TokenKind kind;
    std::string_view text;
};

/// Cuts a statement into tokens that, put together, give the statement again. A quote that is never closed reaches to
/// the end.
std::vector<Token> tokenise(std::string_view sql);

}  // namespace orvent::odbc
