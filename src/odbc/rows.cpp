#include "odbc/rows.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

#include "platform/text.h"

namespace orvent::odbc {

namespace {

using platform::DatabaseError;

constexpr std::size_t kMostRows = 64;
constexpr std::size_t kBlockBytes = 128 * 1024;
constexpr std::size_t kFirstCell = 256;  // bytes
constexpr std::size_t kWidestCell = 16 * 1024;
constexpr std::size_t kFirstAsk = 4096;

DatabaseError noNumber(std::string_view text) {
    return {"The value is not a number: " + std::string(text.substr(0, 100)), "22018", 0, false};
}

SQLSMALLINT boundType(SQLSMALLINT type) {
    switch (type) {
        case SQL_BIGINT:
        case SQL_INTEGER:
        case SQL_SMALLINT:
        case SQL_TINYINT:
        case SQL_BIT:
            return SQL_C_SBIGINT;
        case SQL_DOUBLE:
        case SQL_FLOAT:
        case SQL_REAL:
            return SQL_C_DOUBLE;
        default:
            return SQL_C_CHAR;
    }
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
    }
    isOpen_ = !columns_.empty();
}

void Rows::close() {
    before_ = 0;
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
    for (SQLSMALLINT i = 1; i <= count; ++i) {
        Column column;
        column.number = static_cast<SQLUSMALLINT>(i);
        column.type = typeOf(column.number);
        column.width = column.type == SQL_C_CHAR ? kFirstCell : sizeof(SQLBIGINT);
        columns_.push_back(std::move(column));
    }
    if (count > 0) {
        bindColumns();
    }
}

SQLSMALLINT Rows::typeOf(SQLUSMALLINT number) const {
    SQLCHAR name[2]{};
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    check(SQLDescribeCol(statement_, number, name, sizeof name, &nameLength, &type, &size, &digits, &nullable));
    return boundType(type);
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
        if (column.width > 0) {
            // Left without a value: of a cell only what is filled is ever touched.
            column.cells = std::make_unique_for_overwrite<char[]>(column.width * block_);
            column.lengths = std::make_unique<SQLLEN[]>(block_);
        } else {
            column.cells.reset();
        }
        check(SQLBindCol(statement_, column.number, column.type, column.cells.get(), static_cast<SQLLEN>(column.width),
                         column.cells ? column.lengths.get() : nullptr));
    }
}

bool Rows::fetch() {
    for (Column& column : columns_) {
        column.asked = false;
    }
    if (present_ + 1 < fetched_) {
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
    if (fetched_ < block_) {
        closeCursor();
    }
    return true;
}

/// Makes room for the present row's text, and reads up to that row again.
void Rows::widen(Column& column) {
    const SQLLEN needed = column.lengths[present_];
    const std::size_t row = before_ + present_;
    close();
    const bool fits = needed >= 0 && static_cast<std::size_t>(needed) < kWidestCell;
    column.width = fits ? std::bit_ceil(static_cast<std::size_t>(needed) + 1) : 0;
    bindColumns();
    check(SQLExecute(statement_));
    isOpen_ = true;
    for (std::size_t i = 0; i <= row; ++i) {
        if (!fetch()) {
            throw DatabaseError("A row was removed while it was read", "24000", 0, false);
        }
    }
}

Rows::Column& Rows::at(int column) {
    if (column < 1 || static_cast<std::size_t>(column) > columns_.size() || fetched_ == 0) {
        throw DatabaseError("There is no row or no column " + std::to_string(column), "07009", 0, false);
    }
    return columns_[static_cast<std::size_t>(column) - 1];
}

SQLLEN Rows::length(Column& column) {
    if (column.width == 0) {
        ask(column);
        return column.wholeLength;
    }
    return column.lengths[present_];
}

std::string_view Rows::characters(Column& column) {
    while (column.width > 0) {
        const SQLLEN told = column.lengths[present_];
        if (told == SQL_NULL_DATA) {
            return {};
        }
        if (told >= 0 && static_cast<std::size_t>(told) < column.width) {
            return {column.cells.get() + present_ * column.width, static_cast<std::size_t>(told)};
        }
        widen(column);
    }
    ask(column);
    return column.whole;
}

void Rows::ask(Column& column) {
    if (column.asked) {
        return;
    }
    column.whole.resize(kFirstAsk);
    std::size_t got = 0;
    while (true) {
        // The place behind the last character is the text's own closing null, which the driver writes anew.
        const std::size_t room = column.whole.size() - got;
        SQLLEN left = 0;
        const SQLRETURN outcome = SQLGetData(statement_, column.number, SQL_C_CHAR, column.whole.data() + got,
                                             static_cast<SQLLEN>(room + 1), &left);
        if (outcome == SQL_NO_DATA) {
            break;
        }
        check(outcome);
        if (left == SQL_NULL_DATA) {
            column.wholeLength = SQL_NULL_DATA;
            column.whole.clear();
            column.asked = true;
            return;
        }
        if (left != SQL_NO_TOTAL && static_cast<std::size_t>(left) <= room) {
            got += static_cast<std::size_t>(left);
            break;
        }
        // A driver may stop short of the room so as not to cut a character in two.
        got += std::strlen(column.whole.data() + got);
        column.whole.resize(left == SQL_NO_TOTAL ? column.whole.size() * 2 : got + static_cast<std::size_t>(left));
    }
    column.whole.resize(got);
    column.wholeLength = static_cast<SQLLEN>(got);
    column.asked = true;
}

template <class Value>
Value Rows::cell(const Column& column) const {
    Value value{};
    std::memcpy(&value, column.cells.get() + present_ * column.width, sizeof value);
    return value;
}

std::string Rows::text(int column) {
    Column& wanted = at(column);
    if (wanted.type == SQL_C_CHAR) {
        return std::string(characters(wanted));
    }
    if (length(wanted) == SQL_NULL_DATA) {
        return {};
    }
    return wanted.type == SQL_C_SBIGINT ? decimal(cell<long long>(wanted)) : decimal(cell<double>(wanted));
}

long long Rows::number(int column) {
    Column& wanted = at(column);
    if (length(wanted) == SQL_NULL_DATA) {
        return 0;
    }
    if (wanted.type == SQL_C_SBIGINT) {
        return cell<long long>(wanted);
    }
    if (wanted.type == SQL_C_CHAR) {
        if (const auto whole = platform::parseInteger(characters(wanted))) {
            return *whole;
        }
    }
    constexpr double kExact = 9007199254740992.0;  // beyond it a double skips whole numbers
    const auto real = wanted.type == SQL_C_CHAR ? platform::parseNumber(characters(wanted)) : cell<double>(wanted);
    if (!real || std::abs(*real) > kExact || *real != std::trunc(*real)) {
        throw noNumber(text(column));
    }
    return static_cast<long long>(*real);
}

float Rows::realNumber(int column) {
    Column& wanted = at(column);
    if (length(wanted) == SQL_NULL_DATA) {
        return 0;
    }
    if (wanted.type == SQL_C_SBIGINT) {
        return static_cast<float>(cell<long long>(wanted));
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
