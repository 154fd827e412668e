#include "app/built_in.h"

#include "platform/fault.h"

namespace orvent::app {

std::string builtIn(const std::string& name) {
    for (const BuiltInFile& file : builtInFiles()) {
        if (name == file.name) {
            return {reinterpret_cast<const char*>(file.bytes), file.size};
        }
    }
    throw platform::Fault(name + " is not part of this program.");
}

}  // namespace orvent::app
