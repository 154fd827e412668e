#include "bench/bare_odbc.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <stdexcept>

namespace orvent::bench {

namespace {

constexpr SQLULEN kMostRows = 64;               // of a block
constexpr std::size_t kBlockBytes = 64 * 1024;  // which the caches hold easily
constexpr SQLULEN kWidestBound = 4000;
constexpr std::size_t kBytesOfCharacter = 4;

void check(SQLRETURN outcome, SQLSMALLINT kind, SQLHANDLE handle) {
    if (SQL_SUCCEEDED(outcome) || outcome == SQL_NO_DATA) {
        return;
    }
    SQLCHAR state[6] = {};
    SQLCHAR words[1024] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    SQLGetDiagRec(kind, handle, 1, state, &native, words, sizeof words, &length);
    throw std::runtime_error("bare ODBC: " + std::string(reinterpret_cast<char*>(words)));
}

/// A statement with the buffers that are bound to it.
class Bound {
  public:
    Bound(SQLHDBC link, const std::string& sql) {
        check(SQLAllocHandle(SQL_HANDLE_STMT, link, &statement_), SQL_HANDLE_DBC, link);
        SQLSetStmtAttr(statement_, SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), 0);
        std::string text = sql;
        check(SQLPrepare(statement_, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS), SQL_HANDLE_STMT, statement_);
    }
    ~Bound() { SQLFreeHandle(SQL_HANDLE_STMT, statement_); }
    Bound(const Bound&) = delete;
    Bound& operator=(const Bound&) = delete;

    void setText(int place, std::size_t longest, const std::string& value) {
        Parameter& parameter = at(place);
        if (parameter.text.empty()) {
            parameter.text.resize(longest + 1);
            const bool isLong = longest > kWidestBound;
            bind(place, SQL_C_CHAR, isLong ? SQL_LONGVARCHAR : SQL_VARCHAR, isLong ? longest : kWidestBound,
                 parameter.text.data());
        }
        std::memcpy(parameter.text.data(), value.data(), value.size());
        parameter.length = value.empty() ? SQL_NULL_DATA : static_cast<SQLLEN>(value.size());
    }
    void setNumber(int place, long long value) {
        Parameter& parameter = at(place);
        if (!parameter.isBound) {
            bind(place, SQL_C_SBIGINT, SQL_BIGINT, 19, &parameter.number);
        }
        parameter.number = value;
    }
    void setReal(int place, double value) {
        Parameter& parameter = at(place);
        if (!parameter.isBound) {
            bind(place, SQL_C_DOUBLE, SQL_DOUBLE, 15, &parameter.real);
        }
        parameter.real = value;
    }

    /// Executes, reads all rows and gives their number.
    std::size_t execute() {
        check(SQLExecute(statement_), SQL_HANDLE_STMT, statement_);
        if (!described_) {
            describe();
        }
        if (columns_.empty()) {
            return 0;
        }
        std::size_t rows = 0;
        do {
            fetched_ = 0;
            const SQLRETURN outcome = SQLFetch(statement_);
            if (outcome == SQL_NO_DATA) {
                break;
            }
            check(outcome, SQL_HANDLE_STMT, statement_);
            rows += fetched_;
            readLongColumns();
        } while (block_ == 1 || fetched_ == block_);
        SQLFreeStmt(statement_, SQL_CLOSE);
        return rows;
    }

    /// The number in the first column of the last single row that was read.
    long long number() const {
        const Column& column = columns_.front();
        long long value = 0;
        if (column.type == SQL_C_SBIGINT) {
            std::memcpy(&value, column.cells.get(), sizeof value);
        } else {
            value = std::stoll(column.cells.get());
        }
        return value;
    }

  private:
    struct Parameter {
        bool isBound = false;
        std::vector<char> text = {};
        SQLBIGINT number = 0;
        double real = 0;
        SQLLEN length = 0;
    };
    struct Column {
        SQLSMALLINT type = SQL_C_CHAR;
        std::size_t width = 0;  // 0: a long text, which is not bound
        std::unique_ptr<char[]> cells = {};
        std::unique_ptr<SQLLEN[]> lengths = {};
    };

    Parameter& at(int place) {
        parameters_.resize(std::max(parameters_.size(), static_cast<std::size_t>(place)));
        return parameters_[static_cast<std::size_t>(place) - 1];
    }

    void bind(int place, SQLSMALLINT from, SQLSMALLINT to, SQLULEN size, void* value) {
        Parameter& parameter = at(place);
        parameter.isBound = true;
        check(SQLBindParameter(statement_, static_cast<SQLUSMALLINT>(place), SQL_PARAM_INPUT, from, to, size, 0, value,
                               0, &parameter.length),
              SQL_HANDLE_STMT, statement_);
    }

    void describe() {
        described_ = true;
        SQLSMALLINT count = 0;
        check(SQLNumResultCols(statement_, &count), SQL_HANDLE_STMT, statement_);
        columns_.resize(static_cast<std::size_t>(count));
        bool allBound = true;
        std::size_t rowBytes = 1;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            Column& column = columns_[i];
            SQLCHAR name[2] = {};
            SQLSMALLINT nameLength = 0, type = 0, digits = 0, nullable = 0;
            SQLULEN size = 0;
            check(SQLDescribeCol(statement_, static_cast<SQLUSMALLINT>(i + 1), name, sizeof name, &nameLength, &type,
                                 &size, &digits, &nullable),
                  SQL_HANDLE_STMT, statement_);
            if (type == SQL_BIGINT || type == SQL_INTEGER || type == SQL_SMALLINT) {
                column.type = SQL_C_SBIGINT;
                column.width = sizeof(SQLBIGINT);
            } else if (type == SQL_DOUBLE || type == SQL_FLOAT || type == SQL_REAL) {
                column.type = SQL_C_DOUBLE;
                column.width = sizeof(double);
            } else if (size > 0 && size <= kWidestBound) {
                column.width = size * kBytesOfCharacter + 3;
            } else {
                allBound = false;
            }
            rowBytes += column.width;
        }
        block_ = allBound ? std::clamp<SQLULEN>(kBlockBytes / rowBytes, 1, kMostRows) : 1;
        bindColumns();
    }

    void bindColumns() {
        SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(block_), 0);
        SQLSetStmtAttr(statement_, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            Column& column = columns_[i];
            if (column.width > 0) {
                // Left without a value: of a wide cell only what is filled is ever touched.
                column.cells = std::make_unique_for_overwrite<char[]>(column.width * block_);
                column.lengths = std::make_unique_for_overwrite<SQLLEN[]>(block_);
                check(SQLBindCol(statement_, static_cast<SQLUSMALLINT>(i + 1), column.type, column.cells.get(),
                                 static_cast<SQLLEN>(column.width), column.lengths.get()),
                      SQL_HANDLE_STMT, statement_);
            }
        }
    }

    void readLongColumns() {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (columns_[i].width > 0) {
                continue;
            }
            char piece[kWidestBound];
            SQLLEN left = 0;
            SQLRETURN outcome = SQL_SUCCESS_WITH_INFO;
            while (outcome == SQL_SUCCESS_WITH_INFO) {
                outcome =
                    SQLGetData(statement_, static_cast<SQLUSMALLINT>(i + 1), SQL_C_CHAR, piece, sizeof piece, &left);
            }
            check(outcome, SQL_HANDLE_STMT, statement_);
        }
    }

    SQLHSTMT statement_ = SQL_NULL_HSTMT;
    std::deque<Parameter> parameters_;  // a deque, since the driver holds the places of the values
    std::vector<Column> columns_;
    bool described_ = false;
    SQLULEN block_ = 1;
    SQLULEN fetched_ = 0;
};

}  // namespace

class BareOdbc::Connection {
  public:
    Connection(const BareOdbc& work, const std::string& connectionString) : work_(work), bound_(work.texts_.size()) {
        check(SQLAllocHandle(SQL_HANDLE_DBC, work.environment_, &link_), SQL_HANDLE_ENV, work.environment_);
        std::string text = connectionString;
        check(SQLDriverConnect(link_, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS, nullptr, 0, nullptr,
                               SQL_DRIVER_NOPROMPT),
              SQL_HANDLE_DBC, link_);
        if (const std::string setUp = work.dialect_.setUp(); !setUp.empty()) {
            Bound(link_, setUp).execute();
        }
    }
    ~Connection() {
        bound_.clear();
        sequences_.clear();
        SQLDisconnect(link_);
        SQLFreeHandle(SQL_HANDLE_DBC, link_);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    std::size_t execute(const StatementLog::Event& event) {
        const Text& text = work_.texts_[event.text];
        std::unique_ptr<Bound>& statement = bound_[event.text];
        if (!statement) {
            statement = std::make_unique<Bound>(link_, text.sql);
        }
        for (std::size_t i = 0; i < event.values.size(); ++i) {
            if (const auto* words = std::get_if<std::string>(&event.values[i])) {
                statement->setText(text.places[i], text.longest[i], *words);
            } else if (const auto* number = std::get_if<long long>(&event.values[i])) {
                statement->setNumber(text.places[i], *number);
            } else {
                statement->setReal(text.places[i], static_cast<double>(std::get<float>(event.values[i])));
            }
        }
        for (const odbc::SequenceUse& use : text.sequences) {
            statement->setNumber(use.parameter, sequenceNumber(use));
        }
        return statement->execute();
    }

  private:
    struct Sequence {
        std::unique_ptr<Bound> draw = {};
        long long last = 0;
    };

    long long sequenceNumber(const odbc::SequenceUse& use) {
        Sequence& sequence = sequences_[use.sequence];
        if (use.next) {
            if (!sequence.draw) {
                sequence.draw = std::make_unique<Bound>(link_, work_.dialect_.nextNumber(use.sequence));
            }
            sequence.draw->execute();
            sequence.last = sequence.draw->number();
        }
        return sequence.last;
    }

    const BareOdbc& work_;
    SQLHDBC link_ = SQL_NULL_HDBC;
    std::vector<std::unique_ptr<Bound>> bound_;
    std::map<std::string, Sequence> sequences_;
};

BareOdbc::BareOdbc(const StatementLog& log, const odbc::Dialect& dialect) : log_(log), dialect_(dialect) {
    for (const std::string& sql : log.texts) {
        const odbc::Translation translation = dialect.translate(sql);
        texts_.push_back({translation.sql, translation.sequences, {}, {}});
    }
    for (const StatementLog::Event& event : log.events) {
        if (event.kind != StatementLog::Kind::execute) {
            continue;
        }
        Text& text = texts_[event.text];
        const odbc::Translation translation{text.sql, {}, {}, text.sequences, false};
        text.longest.resize(std::max(text.longest.size(), event.values.size()));
        for (std::size_t i = 0; i < event.values.size(); ++i) {
            if (text.places.size() <= i) {
                text.places.push_back(translation.parameter(static_cast<int>(i) + 1));
            }
            if (const auto* words = std::get_if<std::string>(&event.values[i])) {
                text.longest[i] = std::max(text.longest[i], words->size());
            }
        }
    }
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
}

BareOdbc::~BareOdbc() {
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

std::size_t BareOdbc::run(const std::string& connectionString) const {
    std::vector<std::unique_ptr<Connection>> connections(log_.connections);
    std::size_t rows = 0;
    for (const StatementLog::Event& event : log_.events) {
        std::unique_ptr<Connection>& connection = connections[event.connection];
        switch (event.kind) {
            case StatementLog::Kind::open:
                connection = std::make_unique<Connection>(*this, connectionString);
                break;
            case StatementLog::Kind::execute:
                rows += connection->execute(event);
                break;
            case StatementLog::Kind::close:
                connection.reset();
                break;
        }
    }
    return rows;
}

}  // namespace orvent::bench
