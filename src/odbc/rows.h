#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "odbc/handles.h"

namespace orvent::odbc {

/// The rows that an executed statement gives. Columns are numbered from 1.
///
/// Columns are bound to buffers that are filled a block of rows at a time. What a column is declared for says little of
/// its texts, and drivers fill a cell to its end; so cells begin narrow, and a text that does not fit makes its column
/// wider: the statement is executed again and read up to the row at hand. Texts too long for any cell are asked for one
/// by one; then the block is one row.
///
/// Until the last row is read the statement's parameters must stay as they were bound.
class Rows {
  public:
    /// `where` goes to faults.
    Rows(SQLHANDLE statement, const std::string& where) : statement_(statement), where_(where) {}

    /// Takes up the rows of the execution that just was.
    void open();

    /// Drops what is left of them.
    void close();

    bool fetch();

    bool isNull(int column) { return length(at(column)) == SQL_NULL_DATA; }
    std::string text(int column);
    long long number(int column);
    float realNumber(int column);

  private:
    struct Column {
        SQLUSMALLINT number = 0;
        SQLSMALLINT type = SQL_C_CHAR;
        std::size_t width = 0;  // bytes of a cell; 0 for a column that is not bound
        std::unique_ptr<char[]> cells{};
        std::unique_ptr<SQLLEN[]> lengths{};
        bool asked = false;  // `whole` and `wholeLength` are the present row's
        std::string whole{};
        SQLLEN wholeLength = 0;
    };

    void describe();
    SQLSMALLINT typeOf(SQLUSMALLINT number) const;
    void bindColumns();
    void closeCursor();
    void widen(Column& column);
    Column& at(int column);
    SQLLEN length(Column& column);
    std::string_view characters(Column& column);
    void ask(Column& column);
    void check(SQLRETURN outcome) const;

    template <class Value>
    Value cell(const Column& column) const;

    SQLHANDLE statement_;
    const std::string& where_;

    bool described_ = false;
    bool isOpen_ = false;  // there may be more rows than were fetched
    std::vector<Column> columns_;
    std::size_t block_ = 1;    // rows that one fetch may bring
    std::size_t before_ = 0;   // rows that the fetches before the last one brought
    SQLULEN fetched_ = 0;      // rows that the last fetch brought
    std::size_t present_ = 0;  // the present row among them, from 0
};

}  // namespace orvent::odbc
