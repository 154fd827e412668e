#include "platform/program_folder.h"

#include <algorithm>

#include "platform/fault.h"

namespace orvent::platform {

std::string ProgramFolder::path(std::string_view literal) const {
    std::string tail(literal);
    std::replace(tail.begin(), tail.end(), '\\', static_cast<char>(std::filesystem::path::preferred_separator));
    return root_.string() + tail;
}

std::string ProgramFolder::file(std::string_view literal, std::string_view name, std::string_view extension) const {
    const std::string result = path(literal).append(name).append(extension);
    if (name.find_first_of(std::string_view("/\0", 2)) != std::string_view::npos) {
        throw Fault(result + ": the name holds a character that cannot stand in a file name");
    }
    return result;
}

}  // namespace orvent::platform
