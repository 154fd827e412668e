#include "testkit/temporary_folder.h"

#include <stdlib.h>

#include <stdexcept>
#include <string>
#include <system_error>

namespace orvent::testkit {

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "orvent-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder can be made as " + name);
    }
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace orvent::testkit
