#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

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

    /// Runs a statement of the database's own.
    void run(const std::string& sql);

    /// The number for a place where a translated statement uses a sequence.
    long long number(const SequenceUse& use);

  private:
    /// A sequence of a database that has none: the statement that draws, and this connection's last number.
    struct Sequence {
        std::unique_ptr<platform::Statement> draw;
        long long last = 0;
    };

    Link link_;
    Dialect dialect_;
    bool givesSingleValues_;
    std::string where_;
    std::map<std::string, Sequence, std::less<>> sequences_;
};

/// A connection in auto-commit.
class OdbcConnection : public platform::Connection {
  public:
    OdbcConnection(const Environment& environment, const std::string& connectionString, const std::string& user,
                   std::string where)
        : session_(environment, connectionString, user, std::move(where)) {}

    std::unique_ptr<platform::Statement> prepare(std::string_view sql) override;
    platform::TextLimit textLimit(std::size_t width, platform::TextColumn column) const override {
        return session_.dialect().textLimit(width, column);
    }

    bool readOnly() const override { return onlyRead_ || session_.readOnly(); }

    /// From now on the database refuses to change. Of SQLite's own.
    void onlyRead() {
        session_.run("PRAGMA query_only=ON");
        onlyRead_ = true;
    }

  private:
    Session session_;
    bool onlyRead_ = false;
};

}  // namespace orvent::odbc
