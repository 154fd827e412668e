#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include "odbc/database.h"
#include "testkit/servers.h"
#include "testkit/temporary_folder.h"

namespace orvent::odbc {

enum class Kind { sqlite, postgres, mariaDb };

std::string nameOf(Kind kind);

/// The servers that all tests of this program share. They start when first asked for and stop with the program; one
/// that cannot be had fails the test.
testkit::DatabaseServer& server(Kind kind);

using Texts = std::initializer_list<std::string_view>;

void run(platform::Connection& connection, std::string_view sql, Texts bound = {});

/// The texts of the first column, each followed by a bar.
std::string column(platform::Connection& connection, std::string_view sql, Texts bound = {});

/// An empty database of every kind in turn, opened through the driver that users have.
class EveryDatabase : public ::testing::TestWithParam<Kind> {
  protected:
    EveryDatabase();

    std::unique_ptr<platform::Connection> open() { return open(*database_); }
    static std::unique_ptr<platform::Connection> open(platform::Database& database);

    OwnSources sources_;

  private:
    testkit::TemporaryFolder folder_;
    std::unique_ptr<OdbcDatabase> database_;
};

}  // namespace orvent::odbc
