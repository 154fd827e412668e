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
            return "Usage: orvent [--help | --version] [FILE.orvent ...]\n"
                   "Opens its window, and the scenarios of the files. Repositories and settings are chosen there.\n"
                   "orvent-cli works on scenarios without a window.\n";
        }
    }
    return std::nullopt;
}

}  // namespace orvent::app
