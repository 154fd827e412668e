#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "odbc/database.h"
#include "testkit/servers.h"
#include "testkit/temporary_folder.h"

namespace orvent::odbc {

enum class Kind { sqlite, postgres, mariaDb };

std::string nameOf(Kind kind);

/// The servers that all tests of this program share. They start when first asked for.
testkit::DatabaseServer& server(Kind kind);

void run(platform::Connection& connection, std::string_view sql);

/// The texts of the first column, each followed by a bar.
std::string column(platform::Connection& connection, std::string_view sql);

/// An empty database of a kind of its own, opened through the driver that users have.
class DatabaseTest : public ::testing::Test {
  public:
    void use(Kind kind);

    std::unique_ptr<platform::Connection> open() { return open(*database_); }
    std::unique_ptr<platform::Connection> open(platform::Database& database) const;
    OwnSources sources() const { return sources_; }
    std::filesystem::path file() const { return folder_.path() / "repository.db"; }

  private:
    testkit::TemporaryFolder folder_;
    OwnSources sources_;
    std::unique_ptr<OdbcDatabase> database_;
};

/// The same over every kind.
class EveryDatabase : public DatabaseTest, public ::testing::WithParamInterface<Kind> {
  protected:
    void SetUp() override { use(GetParam()); }
};

}  // namespace orvent::odbc
