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
/// Numbers and texts of bounded width are bound to buffers that are described once and filled a block of rows at a
/// time. Long texts, and texts beyond their declared width where a database lets them, are asked for cell by cell; then
/// the block is one row.
class Rows {
  public:
    /// `keepsWidths` tells that no text is longer than its column's declared width; `where` goes to faults.
    Rows(SQLHANDLE statement, bool keepsWidths, const std::string& where)
        : statement_(statement), keepsWidths_(keepsWidths), where_(where) {}

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
    Column describeColumn(SQLUSMALLINT number);
    void bindColumns();
    Column& at(int column);
    SQLLEN length(Column& column);
    std::string_view characters(Column& column);
    void ask(Column& column);
    void check(SQLRETURN outcome) const;

    template <class Value>
    Value cell(const Column& column) const;

    SQLHANDLE statement_;
    bool keepsWidths_;
    const std::string& where_;

    bool described_ = false;
    bool isOpen_ = false;
    std::vector<Column> columns_;
    std::size_t block_ = 1;    // rows that one fetch may bring
    SQLULEN fetched_ = 0;      // rows that the last fetch brought
    std::size_t present_ = 0;  // the present row among them, from 0
};

}  // namespace orvent::odbc
