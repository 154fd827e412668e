#include "platform/fault.h"

#include <limits>

namespace orvent::platform {

std::int16_t checkedI16(long long value, const char* what) {
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
        throw Fault(std::string(what) + " " + std::to_string(value) +
                    " is out of range: identifiers and codes hold -32768 to 32767.");
    }
    return static_cast<std::int16_t>(value);
}

}  // namespace orvent::platform
