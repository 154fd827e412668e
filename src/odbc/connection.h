#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "odbc/session.h"
#include "platform/database.h"

namespace orvent::odbc {

/// A connection in auto-commit.
class OdbcConnection : public platform::Connection {
  public:
    OdbcConnection(const Environment& environment, const std::string& connectionString, const std::string& user,
                   std::string where)
        : session_(environment, connectionString, user, std::move(where)) {}

    std::unique_ptr<platform::Statement> prepare(std::string_view sql) override;
    std::unique_ptr<platform::Statement> prepareAsIs(std::string_view sql) override;
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
