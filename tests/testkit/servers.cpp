#include "testkit/servers.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <grp.h>
#include <netinet/in.h>
#include <pwd.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "odbc/database.h"
#include "testkit/file_text.h"

namespace orvent::testkit {

namespace {

constexpr auto kPatience = std::chrono::seconds(60);

int freePort() {
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const place = reinterpret_cast<sockaddr*>(&address);
    const bool found = bind(socket, place, size) == 0 && getsockname(socket, place, &size) == 0;
    close(socket);
    if (!found) {
        throw std::runtime_error("127.0.0.1 has no free port");
    }
    return ntohs(address.sin_port);
}

/// In the child: takes on the system user where the test runs as root, then the command. It never returns.
[[noreturn]] void become(const passwd* user, const std::string& folder, const std::vector<std::string>& command) {
    const int log = open((folder + "/log").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    const bool changed = user == nullptr || (initgroups(user->pw_name, user->pw_gid) == 0 &&
                                             setgid(user->pw_gid) == 0 && setuid(user->pw_uid) == 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // a test that dies leaves no server behind
    if (changed && chdir(folder.c_str()) == 0) {
        std::vector<char*> arguments;
        for (const std::string& word : command) {
            arguments.push_back(const_cast<char*>(word.c_str()));
        }
        arguments.push_back(nullptr);
        execvp(arguments[0], arguments.data());
    }
    _exit(127);
}

std::vector<std::string> postgresFolders() {
    std::vector<std::string> folders;
    const std::filesystem::path root = "/usr/lib/postgresql";
    if (std::filesystem::is_directory(root)) {
        for (const auto& version : std::filesystem::directory_iterator(root)) {
            folders.push_back((version.path() / "bin").string());
        }
    }
    return folders;
}

}  // namespace

DatabaseServer::DatabaseServer(std::string systemUser, const std::string& binary,
                               std::vector<std::string> binaryFolders, std::string driver, std::string firstDatabase)
    : systemUser_(std::move(systemUser)),
      binaryFolders_(std::move(binaryFolders)),
      driver_(std::move(driver)),
      firstDatabase_(std::move(firstDatabase)),
      port_(freePort()) {
    program(binary);
    if (geteuid() == 0) {
        const passwd* user = getpwnam(systemUser_.c_str());
        if (user == nullptr || chown(folder_.path().c_str(), user->pw_uid, user->pw_gid) != 0) {
            throw std::runtime_error("there is no system user " + systemUser_ + " to run the database server");
        }
    }
}

DatabaseServer::~DatabaseServer() {
    stop();
}

std::string DatabaseServer::program(const std::string& name) const {
    std::vector<std::string> folders = binaryFolders_;
    const char* const search = std::getenv("PATH");
    std::istringstream path(search != nullptr ? search : "");
    for (std::string folder; std::getline(path, folder, ':');) {
        folders.push_back(folder);
    }
    folders.emplace_back("/usr/sbin");
    for (const std::string& folder : folders) {
        const std::string candidate = folder + "/" + name;
        if (access(candidate.c_str(), X_OK) == 0) {
            return candidate;
        }
    }
    throw std::runtime_error(name + " is not installed; the database tests need it");
}

void DatabaseServer::write(const std::string& name, const std::string& text) const {
    std::ofstream(file(name)) << text;
    std::filesystem::permissions(file(name), std::filesystem::perms::others_read, std::filesystem::perm_options::add);
}

pid_t DatabaseServer::launch(const std::vector<std::string>& command) const {
    const passwd* const user = geteuid() == 0 ? getpwnam(systemUser_.c_str()) : nullptr;
    const std::string folder = folder_.path().string();
    const pid_t child = fork();
    if (child == 0) {
        become(user, folder, command);
    }
    return child;
}

void DatabaseServer::run(const std::vector<std::string>& command) const {
    int status = 0;
    if (waitpid(launch(command), &status, 0) < 0 || status != 0) {
        fail(command.front() + " failed");
    }
}

void DatabaseServer::fail(const std::string& words) const {
    const std::string text = fileText(file("log"));
    throw std::runtime_error(words + "\n" + text.substr(text.size() > 2000 ? text.size() - 2000 : 0));
}

bool DatabaseServer::takesConnections() const {
    try {
        odbc::OdbcDatabase database({.named = {{"server", connectionString(firstDatabase_)}}});
        database.open("server", kUser, kPassword);
        return true;
    } catch (const platform::DatabaseError&) {
        return false;
    }
}

void DatabaseServer::start() {
    if (process_ != 0) {
        return;
    }
    process_ = launch(serverCommand_);
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (!takesConnections()) {
        if (waitpid(process_, nullptr, WNOHANG) != 0) {
            process_ = 0;
            fail("the database server ended at its start");
        }
        if (std::chrono::steady_clock::now() > deadline) {
            fail("the database server takes no connections");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}

void DatabaseServer::stop() {
    if (process_ == 0) {
        return;
    }
    kill(process_, SIGQUIT);  // both servers cut their connections at it
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (waitpid(process_, nullptr, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > deadline) {
            kill(process_, SIGKILL);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    process_ = 0;
}

std::string DatabaseServer::createDatabase(const std::string& name) {
    std::vector<std::string> command = createCommand_;
    command.back() += name;
    run(command);
    return connectionString(name);
}

std::string DatabaseServer::connectionString(const std::string& database) const {
    return "DRIVER={" + driver_ + "};Server=127.0.0.1;Port=" + port() + ";Database=" + database;
}

PostgresServer::PostgresServer()
    : DatabaseServer("postgres", "initdb", postgresFolders(), "PostgreSQL Unicode", "postgres") {
    serverCommand_ = {program("postgres"), "-D", file("data"), "-p", port(), "-k", file("")};
    serverCommand_.insert(serverCommand_.end(), {"-c", "listen_addresses=127.0.0.1", "-c", "fsync=off"});
    createCommand_ = {program("createdb"), "-h", file(""), "-p", port(), "-U", kUser, ""};
    write("password", kPassword);
    run({program("initdb"), "-D", file("data"), "-U", kUser, "--pwfile=" + file("password"), "--auth-local=trust",
         "--auth-host=scram-sha-256", "-E", "UTF8", "--locale=C", "--no-sync"});
    start();
}

MariaDbServer::MariaDbServer() : DatabaseServer("mysql", "mariadbd", {}, "MariaDB Unicode", "mysql") {
    const std::string user = std::string("'") + kUser + "'@'%'";
    serverCommand_ = {program("mariadbd"), "--no-defaults", "--datadir=" + file("data"), "--socket=" + file("socket")};
    serverCommand_.insert(
        serverCommand_.end(),
        {"--pid-file=" + file("pid"), "--init-file=" + file("first.sql"), "--port=" + port(),
         "--bind-address=127.0.0.1", "--skip-name-resolve", "--character-set-server=utf8mb4",
         "--collation-server=utf8mb4_bin", "--innodb-flush-log-at-trx-commit=0", "--innodb-buffer-pool-size=32M"});
    createCommand_ = {program("mariadb"),
                      "--no-defaults",
                      "--host=127.0.0.1",
                      "--port=" + port(),
                      std::string("--user=") + kUser,
                      std::string("--password=") + kPassword,
                      "--execute=CREATE DATABASE "};
    write("first.sql", "CREATE USER IF NOT EXISTS " + user + " IDENTIFIED BY '" + kPassword +
                           "';\nGRANT ALL ON *.* TO " + user + " WITH GRANT OPTION;\n");
    std::vector<std::string> install = {program("mariadb-install-db"), "--no-defaults", "--datadir=" + file("data"),
                                        "--auth-root-authentication-method=normal", "--skip-test-db"};
    if (geteuid() == 0) {
        install.push_back("--user=" + systemUser());
    }
    run(install);
    start();
}

}  // namespace orvent::testkit
