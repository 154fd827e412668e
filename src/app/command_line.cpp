#include "app/command_line.h"

#include <string_view>

#include "qt/platform/application.h"

namespace orvent::app {

std::optional<std::string> answerTo(std::span<char* const> words) {
    for (const std::string_view word : words) {
        if (word == "--version" || word == "-v") {
            return "ORVENT II " + qt::programVersion().toStdString() + "\n";
        }
        if (word == "--help" || word == "-h") {
            return "Usage: orvent [--help | --version]\n"
                   "Without a word it opens its window. Scenarios, repositories and settings are chosen there.\n";
        }
    }
    return std::nullopt;
}

}  // namespace orvent::app
