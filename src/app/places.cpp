#include "app/places.h"

#include <cstdlib>

namespace orvent::app {

namespace {

std::filesystem::path variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::filesystem::path(value) : std::filesystem::path();
}

std::filesystem::path folder(const char* name, const char* inHome) {
    const std::filesystem::path given = variable(name);
    return given.is_absolute() ? given : variable("HOME") / inHome;
}

}  // namespace

Places Places::ofUser() {
    const std::filesystem::path own = variable("ORVENT_HOME");
    if (!own.empty()) {
        return in(std::filesystem::absolute(own));
    }
    return {folder("XDG_DATA_HOME", ".local/share") / "orvent2", folder("XDG_CONFIG_HOME", ".config") / "Mapflow.conf"};
}

}  // namespace orvent::app
