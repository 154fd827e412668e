#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "odbc/dialect.h"
#include "odbc/handles.h"
#include "platform/database.h"

namespace orvent::odbc {

/// What the statements of one connection share.
class Session {
  public:
    /// `where` is the path of the database's file, or empty.
    Session(const Environment& environment, const std::string& connectionString, const std::string& user,
            std::string where);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    SQLHANDLE link() const { return link_.get(); }
    const Dialect& dialect() const { return dialect_; }
    bool givesSingleValues() const { return givesSingleValues_; }
    const std::string& where() const { return where_; }
    bool readOnly() const { return link_.readOnly(); }
    /// As `platform::Connection` tells it.
    std::string databaseName() const;
    void refuseChanges();

    /// Runs a statement of the database's own.
    void run(const std::string& sql);

    /// As `platform::Connection` tells it, from any thread.
    void cancel();
    /// As long as it lives, a statement works that may be broken into.
    class Working {
      public:
        Working(Session& session, SQLHANDLE statement);
        ~Working();
        Working(const Working&) = delete;
        Working& operator=(const Working&) = delete;

      private:
        Session& session_;
        SQLHANDLE before_;  ///< which waits for this one
    };

    /// A sequence of a database that has none: the statement that draws, and this connection's last number.
    struct Sequence {
        std::unique_ptr<platform::Statement> draw;
        long long last = 0;
    };
    Sequence& sequence(const std::string& name) { return sequences_[name]; }

  private:
    Link link_;
    Dialect dialect_;
    bool givesSingleValues_;
    std::string where_;
    std::map<std::string, Sequence, std::less<>> sequences_;
    std::unique_ptr<StatementHandle> breaker_;  ///< by which the others are broken into, where that is the way
    std::mutex mutex_;
    SQLHANDLE working_ = SQL_NULL_HANDLE;
};

}  // namespace orvent::odbc
