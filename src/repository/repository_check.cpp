#include "repository/repository_check.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "platform/text.h"

namespace orvent::repository {

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr std::array<std::string_view, 17> kTables = {"Scenarios",
                                                      "Lines",
                                                      "RelationShips",
                                                      "ScenarioNodes",
                                                      "Comments",
                                                      "Activities",
                                                      "ActivityFunctions",
                                                      "FunctionSubNodes",
                                                      "ActivitySubNodes",
                                                      "RecordSets",
                                                      "RecordSetOutPuts",
                                                      "ActivityTypes",
                                                      "ActivityTypesFunctions",
                                                      "ActivityTypesParams",
                                                      "FunctionTypes",
                                                      "FunctionTypesParams",
                                                      "DataTypes"};

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

void runScript(platform::Connection& connection, const std::string& script) {
    std::string statement;
    for (std::size_t at = 0; at < script.size(); ++at) {
        const auto code = static_cast<unsigned char>(script[at]);
        statement += code < 32 || code >= 126 ? ' ' : script[at];
        if (script[at] == ';' || at + 1 == script.size()) {
            statement.pop_back();
            runIgnoringErrors(connection, statement);
            statement.clear();
        }
    }
}

bool checkRepository(Services& services, platform::Connection& connection) {
    std::vector<std::string_view> missing(kTables.begin(), kTables.end());
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
    const Answer answer = services.messages.show(kMissingTables, "TABLES MISSING", Icon::question, Buttons::okCancel);
    return answer == Answer::ok && createRepository(services, connection);
}

bool createRepository(Services& services, platform::Connection& connection) {
    std::string& path = services.settings.SQLPath;
    std::optional<std::string> script = fileText(path);
    while (!script) {
        services.messages.tell("THE SQL FILE NEEDED FOR THE CREATION OF THE REPOSITORY WAS NOT FOUND!", {},
                               Icon::warning);
        const std::string chosen = services.files.openFile("SQL Files (*.sql)|*.sql");
        if (chosen.empty()) {
            return false;
        }
        path = chosen;
        services.store.setValue("General", "SQLPath", path);
        script = fileText(path);
    }
    runScript(connection, *script);
    services.messages.tell("REPOSITORY CREATED!!", "Repositopry Created", Icon::information);
    return true;
}

}  // namespace orvent::repository
