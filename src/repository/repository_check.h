#pragma once

#include <optional>
#include <string>
#include <vector>

#include "repository/services.h"

namespace orvent::repository {

/// True when the connection's user owns all tables of a repository. Otherwise offers to create the repository, and
/// gives what came of it.
bool checkRepository(Services& services, platform::Connection& connection);

/// Runs the creation script that the setting "SQLPath" names; asks for another file while it cannot be opened. False
/// when no file was given. Errors of single statements are ignored: the script may drop what is not there yet.
bool createRepository(Services& services, platform::Connection& connection);

/// The creation script that the setting "SQLPath" names, or another one that the user gives while it cannot be opened.
std::optional<std::string> creationScript(Services& services);

/// The statements of a script. Each ends with ";" or with the text, and loses its last character in any case. Line
/// ends and all that is not plain ASCII become blanks.
std::vector<std::string> scriptStatements(const std::string& script);

/// Runs the statements of a script. Errors of single statements are ignored.
void runScript(platform::Connection& connection, const std::string& script);

/// Runs the script on an empty database. Any error but that of dropping what is not there is thrown.
void runWholeScript(platform::Connection& connection, const std::string& script);

}  // namespace orvent::repository
