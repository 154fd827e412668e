#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstddef>
#include <string>
#include <vector>

#include "bench/statement_log.h"
#include "odbc/dialect.h"

namespace orvent::bench {

/// Sends a logged piece of work again, straight through the ODBC API: the floor that a program's own layers are
/// measured against. It does what a careful programmer would write by hand for this very work and nothing else: every
/// statement is prepared once on a connection and used again, parameters and columns are bound once to buffers that are
/// large enough, rows are fetched in blocks. What it reads it throws away.
class BareOdbc {
  public:
    /// Makes everything ready: the translated statements, the sizes of all buffers.
    BareOdbc(const StatementLog& log, const odbc::Dialect& dialect);
    ~BareOdbc();
    BareOdbc(const BareOdbc&) = delete;
    BareOdbc& operator=(const BareOdbc&) = delete;

    /// Connects and sends it all; gives the number of rows read. Throws std::runtime_error with the driver's words.
    std::size_t run(const std::string& connectionString) const;

  private:
    struct Text {
        std::string sql;
        std::vector<odbc::SequenceUse> sequences;
        std::vector<int> places;           ///< of the logged parameters in the translated statement
        std::vector<std::size_t> longest;  ///< bytes that each logged text parameter needs
    };
    class Connection;

    const StatementLog& log_;
    odbc::Dialect dialect_;
    std::vector<Text> texts_;
    SQLHENV environment_ = SQL_NULL_HENV;
};

}  // namespace orvent::bench
