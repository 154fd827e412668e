#pragma once

#include <sql.h>
#include <sqlext.h>

#include <string>

#include "platform/database.h"

namespace orvent::odbc {

/// The driver's or driver manager's words for what last went wrong at a handle. `where` (a file's path, or empty) is
/// added to faults of the medium, whose words do not tell it.
platform::DatabaseError errorOf(SQLSMALLINT kind, SQLHANDLE handle, const std::string& where = {});

/// An environment, connection or statement handle of the ODBC API.
template <SQLSMALLINT Kind>
class Handle {
  public:
    explicit Handle(SQLHANDLE parent) {
        constexpr SQLSMALLINT parentKind = Kind == SQL_HANDLE_STMT ? SQL_HANDLE_DBC : SQL_HANDLE_ENV;
        if (!SQL_SUCCEEDED(SQLAllocHandle(Kind, parent, &handle_))) {
            if (parent == SQL_NULL_HANDLE) {
                throw platform::DatabaseError("the ODBC driver manager gives no environment", "HY001", 0, false);
            }
            throw errorOf(parentKind, parent);
        }
    }
    ~Handle() { SQLFreeHandle(Kind, handle_); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    SQLHANDLE get() const { return handle_; }

  private:
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

using StatementHandle = Handle<SQL_HANDLE_STMT>;

/// An environment of ODBC 3.
class Environment {
  public:
    Environment();
    SQLHANDLE get() const { return handle_.get(); }

  private:
    Handle<SQL_HANDLE_ENV> handle_;
};

/// A connection handle that is connected as long as it lives.
class Link {
  public:
    /// Connects by a connection string; throws `DatabaseError`.
    Link(const Environment& environment, const std::string& connectionString);
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    SQLHANDLE get() const { return handle_.get(); }

    /// What the database calls itself, such as "Oracle" or "SQLite".
    std::string dbmsName() const;

    /// True when the driver says that the data source is one to be read only.
    bool readOnly() const;

    /// True when the driver says that it gives any value of a block of rows once more.
    bool givesSingleValues() const;

  private:
    Handle<SQL_HANDLE_DBC> handle_;
};

}  // namespace orvent::odbc
