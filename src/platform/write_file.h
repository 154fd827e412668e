#pragma once

#include <string>
#include <string_view>

namespace orvent::platform {

/// Writes `text` to the file as `writeFile` does; nobody but the user may read it afterwards.
void writePrivateFile(const std::string& path, std::string_view text);

}  // namespace orvent::platform
