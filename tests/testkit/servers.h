#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "testkit/temporary_folder.h"

namespace orvent::testkit {

/// A real database server of the test's own, on a free port of 127.0.0.1 and in a temporary folder. The constructor of
/// each kind sets it up and starts it; the destructor stops it and deletes everything. When the test runs as root the
/// server runs as its own system user. Throws std::runtime_error with plain words, so that a machine without the server
/// fails the test.
class DatabaseServer {
  public:
    virtual ~DatabaseServer();
    DatabaseServer(const DatabaseServer&) = delete;
    DatabaseServer& operator=(const DatabaseServer&) = delete;

    /// The login that connections are opened with. The password holds what a connection string must quote.
    static constexpr const char* kUser = "orvent";
    static constexpr const char* kPassword = "p;w}1=";

    /// Makes an empty database and gives the connection string for it, without the login.
    std::string createDatabase(const std::string& name);

    void start();  ///< returns when the server takes connections
    void stop();   ///< in a hurry, with connections cut; the data stays

  protected:
    /// `systemUser` runs the server, `binary` is looked for in `binaryFolders` and in the search path. `driver` is how
    /// ODBC knows it, `firstDatabase` one that is always there.
    DatabaseServer(std::string systemUser, const std::string& binary, std::vector<std::string> binaryFolders,
                   std::string driver, std::string firstDatabase);

    std::string program(const std::string& name) const;  ///< the path of a program of the server
    void write(const std::string& name, const std::string& text) const;
    void run(const std::vector<std::string>& command) const;
    std::string file(const std::string& name) const { return (folder_.path() / name).string(); }
    const std::string& systemUser() const { return systemUser_; }
    std::string port() const { return std::to_string(port_); }

    std::vector<std::string> serverCommand_;
    std::vector<std::string> createCommand_;  ///< the name of the new database goes to its end

  private:
    pid_t launch(const std::vector<std::string>& command) const;
    [[noreturn]] void fail(const std::string& words) const;
    bool takesConnections() const;
    std::string connectionString(const std::string& database) const;

    std::string systemUser_;
    std::vector<std::string> binaryFolders_;
    std::string driver_;
    std::string firstDatabase_;
    TemporaryFolder folder_;
    int port_;
    pid_t process_ = 0;
};

struct PostgresServer : DatabaseServer {
    PostgresServer();
};

struct MariaDbServer : DatabaseServer {
    MariaDbServer();
};

}  // namespace orvent::testkit
