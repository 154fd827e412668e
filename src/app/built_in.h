#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace orvent::app {

/// A file that is part of the program.
struct BuiltInFile {
    const char* name;
    const unsigned char* bytes;
    std::size_t size;
};

std::span<const BuiltInFile> builtInFiles();

/// The bytes of such a file. Throws a `Fault` when the program has none of that name.
std::string builtIn(const std::string& name);

}  // namespace orvent::app
