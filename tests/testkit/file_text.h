#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace orvent::testkit {

/// All bytes of a file, or "(no file)".
inline std::string fileText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(no file)";
}

}  // namespace orvent::testkit
