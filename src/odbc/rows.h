#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "odbc/handles.h"

namespace orvent::odbc {

/// The rows that an executed statement gives. Columns are numbered from 1.
///
/// Columns are bound to buffers that are filled a block of rows at a time. What a column is declared for says little of
/// its texts, and drivers fill a cell to its end; so cells begin narrow, and a text that does not fit is asked for by
/// itself as soon as its block is there. Of a driver that cannot give a single value of a block but holds the whole
/// result, its row is fetched once more into a cell that is wide enough. Any other driver gets cells of the declared
/// size, and columns too long for that are asked for row by row. Nothing is ever executed twice: another session may
/// have written in between.
class Rows {
  public:
    /// How values come from the driver.
    enum class Values {
        asDescribed,
        /// As texts, whatever the column is described as: of an expression an embedded database describes what its
        /// first row holds, and gives the real numbers of the others without their fractions.
        asTexts,
    };

    /// `where` goes to faults.
    /// `givesSingleValues` tells that the driver gives any value of a block once more.
    Rows(SQLHANDLE statement, bool givesSingleValues, const std::string& where, Values values)
        : statement_(statement), givesSingleValues_(givesSingleValues), where_(where), values_(values) {}

    /// Takes up the rows of the execution that just was.
    void open();

    /// Drops what is left of them.
    void close();

    bool fetch();
    /// The next row came with the present one.
    bool isNextAtHand() const { return present_ + 1 < fetched_; }

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
        std::map<std::size_t, std::string> whole{};  // the block's texts that no cell holds, by row from 0
        std::size_t wanted = 0;                      // the width that would have held them
    };

    void describe();
    void describe(Column& column) const;
    bool holdsResult() const;
    void bindColumns();
    void bind(const Column& column) const;
    void widen();
    void closeCursor();
    void gather();
    Column& at(int column);
    SQLLEN length(const Column& column) const { return column.lengths[present_]; }
    std::string_view characters(const Column& column) const;
    bool fits(const Column& column, std::size_t row) const;
    SQLLEN ask(Column& column, std::size_t row);
    SQLLEN fetchAgain(Column& column, std::size_t row);
    void resume();
    void check(SQLRETURN outcome) const;

    template <class Value>
    Value cell(const Column& column) const;

    SQLHANDLE statement_;
    bool givesSingleValues_;
    const std::string& where_;
    Values values_;

    bool described_ = false;
    bool isOpen_ = false;     // there may be more rows than were fetched
    bool scrolls_ = false;    // single rows are fetched once more
    std::size_t before_ = 0;  // rows before the block
    std::vector<Column> columns_;
    std::size_t block_ = 1;    // rows that one fetch may bring
    SQLULEN fetched_ = 0;      // rows that the last fetch brought
    std::size_t present_ = 0;  // the present row among them, from 0
};

}  // namespace orvent::odbc
