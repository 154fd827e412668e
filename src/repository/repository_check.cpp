#include "repository/repository_check.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/repository_names.h"
#include "platform/text.h"

namespace orvent::repository {

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr std::string_view kOwnTables = "SELECT table_name FROM user_tables";

constexpr const char* kMissingTables =
    "SOME OF THE NECESSERY TABLES WERE NOT FOUND!!\n"
    "WOULD YOU LIKE THEM TO BE CREATED?\n"
    "(Creating the repository will cause the loosing of any existing data.\n"
    "Choosing Cancel will disable this connection)";

/// The whole file, or nothing when it cannot be opened.
std::optional<std::string> fileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::error_code ignored;
    if (!file || std::filesystem::is_directory(path, ignored)) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void runIgnoringErrors(platform::Connection& connection, const std::string& sql) {
    try {
        connection.prepare(sql)->execute();
    } catch (const platform::Fault&) {
        // A script may begin by dropping what may not yet be there.
    }
}

}  // namespace

std::vector<std::string> scriptStatements(const std::string& script) {
    std::vector<std::string> statements;
    std::string statement;
    for (std::size_t at = 0; at < script.size(); ++at) {
        const auto code = static_cast<unsigned char>(script[at]);
        statement += code < 32 || code >= 126 ? ' ' : script[at];
        if (script[at] == ';' || at + 1 == script.size()) {
            statement.pop_back();
            statements.push_back(std::exchange(statement, {}));
        }
    }
    return statements;
}

void runScript(platform::Connection& connection, const std::string& script) {
    for (const std::string& statement : scriptStatements(script)) {
        runIgnoringErrors(connection, statement);
    }
}

void runWholeScript(platform::Connection& connection, const std::string& script) {
    for (const std::string& statement : scriptStatements(script)) {
        const std::size_t begin = statement.find_first_not_of(' ');
        if (begin == std::string::npos) {
            continue;
        }
        if (statement.compare(begin, 5, "DROP ") == 0) {
            runIgnoringErrors(connection, statement);
        } else {
            connection.prepare(statement)->execute();
        }
    }
}

bool checkRepository(Services& services, platform::Connection& connection) {
    std::vector<std::string_view> missing(platform::kRepositoryTables.begin(), platform::kRepositoryTables.end());
    {
        const std::unique_ptr<platform::Statement> tables = connection.prepare(kOwnTables);
        tables->execute();
        while (tables->fetch()) {
            const std::string name = tables->text(1);
            std::erase_if(missing,
                          [&name](std::string_view table) { return platform::equalIgnoringCase(table, name); });
        }
    }
    if (missing.empty()) {
        return true;
    }
    if (connection.readOnly()) {
        return false;
    }
    const Answer answer =
        services.messages.show(kMissingTables, "TABLES MISSING", Icon::question, Buttons::destroyOkCancel);
    return answer == Answer::ok && createRepository(services, connection);
}

std::optional<std::string> creationScript(Services& services) {
    std::string& path = services.settings.SQLPath;
    std::optional<std::string> script = fileText(path);
    while (!script) {
        services.messages.tell("THE SQL FILE NEEDED FOR THE CREATION OF THE REPOSITORY WAS NOT FOUND!", {},
                               Icon::warning);
        const std::string chosen = services.files.openFile("SQL Files (*.sql)|*.sql");
        if (chosen.empty()) {
            return std::nullopt;
        }
        path = chosen;
        services.store.setValue("General", "SQLPath", path);
        script = fileText(path);
    }
    return script;
}

bool createRepository(Services& services, platform::Connection& connection) {
    const std::optional<std::string> script = creationScript(services);
    if (!script) {
        return false;
    }
    runScript(connection, *script);
    services.messages.tell("REPOSITORY CREATED!!", "Repositopry Created", Icon::information);
    return true;
}

}  // namespace orvent::repository
