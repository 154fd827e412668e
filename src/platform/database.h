#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fault.h"
#include "platform/text_limit.h"

namespace orvent::platform {

/// Any failure of a database, whatever the driver.
class DatabaseError : public Fault {
  public:
    /// `description` holds the driver's words, `sqlState` the five-character SQLSTATE, `nativeCode` the driver's own
    /// number; `integrity` tells that an integrity constraint refused the statement.
    DatabaseError(const std::string& description, std::string sqlState, long nativeCode, bool integrity);

    const std::string& sqlState() const { return sqlState_; }
    long nativeCode() const { return nativeCode_; }
    bool integrityViolation() const { return integrity_; }

  private:
    std::string sqlState_;
    long nativeCode_;
    bool integrity_;
};

/// The provider error number that the product knows a refused DELETE by.
inline constexpr std::uint32_t kStillReferred = 0x80040E14;

/// A prepared statement. Parameters and columns are numbered from 1. Every operation throws `DatabaseError`.
///
/// Use: bind every parameter, `execute`, then for a query `fetch` until it gives false. A statement may be bound and
/// executed again as often as needed; a new `execute` drops what is left of the rows of the former one.
class Statement {
  public:
    virtual ~Statement() = default;

    virtual void bind(int parameter, std::string_view text) = 0;  ///< UTF-8, any length; '' as the database takes it
    virtual void bind(int parameter, long long number) = 0;
    virtual void bind(int parameter, float number) = 0;  ///< comes back as the same 32-bit float

    /// The text of that place, also an empty one, or NULL for none.
    virtual void bindAsIs(int parameter, const std::string* text) {
        bind(parameter, text ? std::string_view(*text) : std::string_view());
    }

    virtual void execute() = 0;
    virtual bool fetch() = 0;  ///< steps to the next row; false behind the last one

    /// How many rows the INSERT, UPDATE or DELETE just executed has reached, -1 when the driver cannot say. Some
    /// drivers leave out a row whose values were the same already.
    virtual long long changedRows() = 0;

    virtual bool isNull(int column) = 0;
    virtual std::string text(int column) = 0;  ///< null reads as the empty text
    virtual long long number(int column) = 0;  ///< null reads as 0; a text that is no number is an error
    virtual float realNumber(int column) = 0;  ///< null reads as 0
};

/// An open connection in auto-commit. It closes with its destruction; its statements must be gone by then.
class Connection {
  public:
    virtual ~Connection() = default;

    /// Prepares `sql` in the Oracle dialect, with `?` for parameters. Some drivers report a faulty statement only at
    /// `execute`.
    virtual std::unique_ptr<Statement> prepare(std::string_view sql) = 0;

    /// Prepares `sql` as this database itself reads it.
    virtual std::unique_ptr<Statement> prepareAsIs(std::string_view sql) { return prepare(sql); }

    /// What this database takes in a column to which the creation script gives `width` characters.
    virtual TextLimit textLimit(std::size_t width, TextColumn column) const {
        static_cast<void>(width);
        static_cast<void>(column);
        return {};
    }

    /// What kind of database it is, in lower case: "sqlite", "postgresql", "mariadb", "oracle" or another word.
    virtual std::string databaseName() const { return {}; }

    /// From now on the database refuses every change, as far as it or its driver knows how to.
    virtual void refuseChanges() {}

    /// Breaks into the statement that another thread has running on this connection: it fails soon, or gives what it
    /// has as if that were all. Nothing happens where none runs, or where the driver does not know how. The one word
    /// that may be called while another thread uses the connection.
    virtual void cancel() {}

    /// The database is known to refuse every change. False may also mean that it has not said so.
    virtual bool readOnly() const { return false; }
};

/// The way to data sources.
class Database {
  public:
    virtual ~Database() = default;

    /// Opens the data source of that name (as `DataSources` lists it). Throws `DatabaseError` when it cannot be opened.
    virtual std::unique_ptr<Connection> open(const std::string& source, const std::string& user,
                                             const std::string& password) = 0;

    /// An empty SQLite database in memory, which goes with the connection. Throws `DatabaseError`.
    virtual std::unique_ptr<Connection> openScratch() {
        throw DatabaseError("There is no database in memory.", "HYC00", 0, false);
    }
};

/// One data source, as the driver manager tells it.
struct DataSource {
    std::string name;
    std::string driver;       ///< the driver's description
    bool sourceOnly = false;  ///< only to be read from; never a repository
};

/// The list of data sources that a connection can be opened on.
class DataSources {
  public:
    virtual ~DataSources() = default;
    virtual std::vector<DataSource> list() = 0;
};

}  // namespace orvent::platform
