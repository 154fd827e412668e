#include "odbc/rows.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>

#include "platform/text.h"

namespace orvent::odbc {

namespace {

using platform::DatabaseError;

constexpr std::size_t kMostRows = 64;
constexpr std::size_t kBlockBytes = 128 * 1024;
constexpr std::size_t kFirstCell = 256;  // bytes
constexpr std::size_t kWidestCell = 16 * 1024;
constexpr std::size_t kNumber = 32;  // its text
constexpr std::size_t kFirstAsk = 4096;

DatabaseError noNumber(std::string_view text) {
    return {"The value is not a number: " + std::string(text.substr(0, 100)), "22018", 0, false};
}

/// Integers of 64 bits are read as text, since not every driver knows them as a C type.
SQLSMALLINT boundType(SQLSMALLINT type) {
    switch (type) {
        case SQL_INTEGER:
        case SQL_SMALLINT:
        case SQL_TINYINT:
        case SQL_BIT:
            return SQL_C_SLONG;
        case SQL_DOUBLE:
        case SQL_FLOAT:
        case SQL_REAL:
            return SQL_C_DOUBLE;
        default:
            return SQL_C_CHAR;
    }
}

// The whole number that a value is, nothing when it is none.
std::optional<long long> wholeNumber(double value) {
    constexpr double kExact = 9007199254740992.0;  // beyond it a double skips whole numbers
    return std::abs(value) > kExact || value != std::trunc(value) ? std::nullopt
                                                                  : std::optional(static_cast<long long>(value));
}
std::optional<long long> wholeNumber(std::string_view text) {
    if (const auto whole = platform::parseInteger(text)) {
        return *whole;
    }
    const auto real = platform::parseNumber(text);
    return real ? wholeNumber(*real) : std::nullopt;
}

template <class Number>
std::string decimal(Number value) {
    char buffer[64];
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr};
}

}  // namespace

void Rows::open() {
    if (!described_) {
        describe();
        described_ = true;
    } else {
        widen();
    }
    before_ = 0;
    isOpen_ = !columns_.empty();
}

void Rows::close() {
    fetched_ = 0;
    present_ = 0;
    closeCursor();
}

/// As soon as all rows are fetched, since an open cursor may hold a lock.
void Rows::closeCursor() {
    if (isOpen_) {
        isOpen_ = false;
        SQLFreeStmt(statement_, SQL_CLOSE);
    }
}

void Rows::describe() {
    SQLSMALLINT count = 0;
    check(SQLNumResultCols(statement_, &count));
    scrolls_ = !givesSingleValues_ && holdsResult();
    const bool single = givesSingleValues_ || scrolls_;
    bool bound = true;
    for (SQLSMALLINT i = 1; i <= count; ++i) {
        Column column;
        column.number = static_cast<SQLUSMALLINT>(i);
        describe(column);
        if (column.type == SQL_C_CHAR && single) {
            column.width = std::min(column.width, kFirstCell);
        }
        // Behind a column that is asked for, such a driver binds none.
        bound = single || (bound && column.width <= kWidestCell);
        if (!bound) {
            column.type = SQL_C_CHAR;
            column.width = 0;
        }
        columns_.push_back(std::move(column));
    }
    if (count > 0) {
        bindColumns();
    }
}

bool Rows::holdsResult() const {
    SQLULEN cursor = SQL_CURSOR_FORWARD_ONLY;
    return SQL_SUCCEEDED(SQLGetStmtAttr(statement_, SQL_ATTR_CURSOR_TYPE, &cursor, 0, nullptr)) &&
           cursor == SQL_CURSOR_STATIC;
}

/// The C type and the width that holds every value of the column as it was declared.
void Rows::describe(Column& column) const {
    SQLCHAR name[2]{};
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    check(SQLDescribeCol(statement_, column.number, name, sizeof name, &nameLength, &type, &size, &digits, &nullable));
    const SQLSMALLINT described = boundType(type);
    column.type = values_ == Values::asTexts ? SQLSMALLINT{SQL_C_CHAR} : described;
    if (column.type != SQL_C_CHAR) {
        column.width = column.type == SQL_C_DOUBLE ? sizeof(SQLDOUBLE) : sizeof(SQLINTEGER);
    } else if (type == SQL_BIGINT || described != SQL_C_CHAR) {
        column.width = kNumber;
    } else {
        // A size is in characters of up to four bytes; 0 stands for no limit. Numbers are some places longer.
        column.width = size == 0 || size > kWidestCell ? kWidestCell + 1 : (size + 16) * 4;
    }
}

void Rows::bindColumns() {
    std::size_t rowBytes = 0;
    bool allBound = true;
    for (const Column& column : columns_) {
        rowBytes += column.width;
        allBound = allBound && column.width > 0;
    }
    block_ = allBound ? std::clamp<std::size_t>(kBlockBytes / rowBytes, 1, kMostRows) : 1;
    SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(block_), 0);
    SQLSetStmtAttr(statement_, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
    for (Column& column : columns_) {
        column.lengths = std::make_unique<SQLLEN[]>(block_);
        if (column.width == 0) {
            continue;
        }
        // Left without a value: of a cell only what is filled is ever touched.
        column.cells = std::make_unique_for_overwrite<char[]>(column.width * block_);
        bind(column);
    }
}

void Rows::bind(const Column& column) const {
    check(SQLBindCol(statement_, column.number, column.type, column.cells.get(), static_cast<SQLLEN>(column.width),
                     column.lengths.get()));
}

/// Makes room for texts as the last execution had, where a cell can hold them.
void Rows::widen() {
    bool wider = false;
    for (Column& column : columns_) {
        if (column.width > 0 && column.wanted > column.width && column.wanted <= kWidestCell) {
            column.width = std::bit_ceil(column.wanted);
            wider = true;
        }
    }
    if (wider) {
        bindColumns();
    }
}

bool Rows::fetch() {
    if (isNextAtHand()) {
        ++present_;
        return true;
    }
    before_ += fetched_;
    fetched_ = 0;
    present_ = 0;
    if (!isOpen_) {
        return false;
    }
    const SQLRETURN outcome = SQLFetch(statement_);
    if (outcome == SQL_NO_DATA) {
        fetched_ = 0;
        closeCursor();
        return false;
    }
    check(outcome);
    fetched_ = std::max<SQLULEN>(fetched_, 1);
    gather();
    if (fetched_ < block_) {
        closeCursor();
    }
    return true;
}

/// Asks for the block's texts that are in no cell, in the order of rows and columns.
void Rows::gather() {
    for (Column& column : columns_) {
        column.whole.clear();
    }
    bool moved = false;
    for (std::size_t row = 0; row < fetched_; ++row) {
        bool there = block_ == 1 || scrolls_;
        for (Column& column : columns_) {
            if (fits(column, row)) {
                continue;
            }
            if (!there) {
                check(SQLSetPos(statement_, static_cast<SQLSETPOSIROW>(row + 1), SQL_POSITION, SQL_LOCK_NO_CHANGE));
                there = true;
            }
            SQLLEN& told = column.lengths[row];
            told = scrolls_ ? fetchAgain(column, row) : ask(column, row);
            moved = moved || scrolls_;
            column.wanted = std::max(column.wanted, static_cast<std::size_t>(std::max<SQLLEN>(told, 0)) + 1);
        }
    }
    if (moved) {
        resume();
    }
}

bool Rows::fits(const Column& column, std::size_t row) const {
    const SQLLEN told = column.lengths[row];
    return column.width > 0 && (column.type != SQL_C_CHAR || told == SQL_NULL_DATA ||
                                (told >= 0 && static_cast<std::size_t>(told) < column.width));
}

/// Fetches the row alone, with only this column bound to a cell that holds it. Gives what `ask` gives.
SQLLEN Rows::fetchAgain(Column& column, std::size_t row) {
    const SQLLEN told = column.lengths[row];
    std::string& text = column.whole[row];
    text.resize(told > 0 ? static_cast<std::size_t>(told) : kFirstAsk);
    SQLFreeStmt(statement_, SQL_UNBIND);
    SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(1), 0);
    SQLSetStmtAttr(statement_, SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
    while (true) {
        SQLLEN length = 0;
        // The place behind the last character is the text's own closing null, which the driver writes anew.
        check(SQLBindCol(statement_, column.number, SQL_C_CHAR, text.data(), static_cast<SQLLEN>(text.size() + 1),
                         &length));
        check(SQLFetchScroll(statement_, SQL_FETCH_ABSOLUTE, static_cast<SQLLEN>(before_ + row + 1)));
        if (length == SQL_NULL_DATA) {
            text.clear();
            return SQL_NULL_DATA;
        }
        if (length >= 0 && static_cast<std::size_t>(length) <= text.size()) {
            text.resize(static_cast<std::size_t>(length));
            return length;
        }
        text.resize(length > 0 ? static_cast<std::size_t>(length) : text.size() * 2);
    }
}

/// Binds the columns as they were and stands behind the block, where the next one begins.
void Rows::resume() {
    SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(1), 0);
    SQLFreeStmt(statement_, SQL_UNBIND);
    check(SQLFetchScroll(statement_, SQL_FETCH_ABSOLUTE, static_cast<SQLLEN>(before_ + fetched_)));
    SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(block_), 0);
    SQLSetStmtAttr(statement_, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
    for (const Column& column : columns_) {
        if (column.width > 0) {
            // A driver may clear the first length as it binds.
            const SQLLEN first = column.lengths[0];
            bind(column);
            column.lengths[0] = first;
        }
    }
}

Rows::Column& Rows::at(int column) {
    if (column < 1 || static_cast<std::size_t>(column) > columns_.size() || fetched_ == 0) {
        throw DatabaseError("There is no row or no column " + std::to_string(column), "07009", 0, false);
    }
    return columns_[static_cast<std::size_t>(column) - 1];
}

std::string_view Rows::characters(const Column& column) const {
    const SQLLEN told = length(column);
    if (told == SQL_NULL_DATA) {
        return {};
    }
    const auto whole = column.whole.find(present_);
    if (whole != column.whole.end()) {
        return whole->second;
    }
    return {column.cells.get() + present_ * column.width, static_cast<std::size_t>(told)};
}

/// The value's length, or SQL_NULL_DATA; the text goes into `whole`.
SQLLEN Rows::ask(Column& column, std::size_t row) {
    std::string& text = column.whole[row];
    text.resize(kFirstAsk);
    std::size_t got = 0;
    while (true) {
        // The place behind the last character is the text's own closing null, which the driver writes anew.
        const std::size_t room = text.size() - got;
        SQLLEN left = 0;
        const SQLRETURN outcome =
            SQLGetData(statement_, column.number, SQL_C_CHAR, text.data() + got, static_cast<SQLLEN>(room + 1), &left);
        if (outcome == SQL_NO_DATA) {
            break;
        }
        check(outcome);
        if (left == SQL_NULL_DATA) {
            text.clear();
            return SQL_NULL_DATA;
        }
        if (left != SQL_NO_TOTAL && static_cast<std::size_t>(left) <= room) {
            got += static_cast<std::size_t>(left);
            break;
        }
        // A driver may stop short of the room so as not to cut a character in two.
        got += std::strlen(text.data() + got);
        text.resize(left == SQL_NO_TOTAL ? text.size() * 2 : got + static_cast<std::size_t>(left));
    }
    text.resize(got);
    return static_cast<SQLLEN>(got);
}

template <class Value>
Value Rows::cell(const Column& column) const {
    Value value{};
    std::memcpy(&value, column.cells.get() + present_ * column.width, sizeof value);
    return value;
}

std::string Rows::text(int column) {
    const Column& wanted = at(column);
    if (wanted.type == SQL_C_CHAR) {
        return std::string(characters(wanted));
    }
    if (length(wanted) == SQL_NULL_DATA) {
        return {};
    }
    return wanted.type == SQL_C_SLONG ? decimal(cell<SQLINTEGER>(wanted)) : decimal(cell<double>(wanted));
}

long long Rows::number(int column) {
    const Column& wanted = at(column);
    if (length(wanted) == SQL_NULL_DATA) {
        return 0;
    }
    if (wanted.type == SQL_C_SLONG) {
        return cell<SQLINTEGER>(wanted);
    }
    const auto whole = wanted.type == SQL_C_CHAR ? wholeNumber(characters(wanted)) : wholeNumber(cell<double>(wanted));
    return whole ? *whole : throw noNumber(text(column));
}

float Rows::realNumber(int column) {
    const Column& wanted = at(column);
    if (length(wanted) == SQL_NULL_DATA) {
        return 0;
    }
    if (wanted.type == SQL_C_SLONG) {
        return static_cast<float>(cell<SQLINTEGER>(wanted));
    }
    if (wanted.type == SQL_C_DOUBLE) {
        return static_cast<float>(cell<double>(wanted));
    }
    const auto real = platform::parseNumber(characters(wanted));
    if (!real) {
        throw noNumber(characters(wanted));
    }
    return static_cast<float>(*real);
}

void Rows::check(SQLRETURN outcome) const {
    if (!SQL_SUCCEEDED(outcome)) {
        throw errorOf(SQL_HANDLE_STMT, statement_, where_);
    }
}

}  // namespace orvent::odbc
