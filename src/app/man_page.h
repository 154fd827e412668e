#pragma once

#include <string>

namespace CLI {
class App;
}

namespace orvent::app {

/// The group of the options that each command takes: the manual page tells them once.
inline constexpr const char* kOfEveryCommand = "Repository";

/// What stands behind the commands: the exit codes, the environment, the files. For the manual page, or as plain text.
std::string manSections(bool forManual);

/// The manual page of a command line (roff, man macros), from the same words as its help.
std::string manPage(const CLI::App& app);

}  // namespace orvent::app
