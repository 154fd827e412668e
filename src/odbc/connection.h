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

    std::string databaseName() const override { return session_.databaseName(); }

    void cancel() override { session_.cancel(); }

    void refuseChanges() override {
        session_.refuseChanges();
        onlyRead_ = true;
    }

  private:
    Session session_;
    bool onlyRead_ = false;
};

}  // namespace orvent::odbc
