#include "app/places.h"

#include <cstdlib>

#include "platform/fault.h"

namespace orvent::app {

namespace {

std::filesystem::path variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::filesystem::path(value) : std::filesystem::path();
}

std::filesystem::path folder(const char* name, const char* inHome) {
    const std::filesystem::path given = variable(name);
    if (given.is_absolute()) {
        return given;
    }
    const std::filesystem::path home = variable("HOME");
    if (!home.is_absolute()) {
        throw platform::Fault(
            "The program does not know where your files belong: the environment variable HOME names no folder.\n"
            "Set it, or let ORVENT_HOME name the folder that is to hold everything.");
    }
    return home / inHome;
}

}  // namespace

odbc::OwnSources Places::sources() const {
    odbc::OwnSources own;
    own.embedded = odbc::EmbeddedRepository{.file = repository()};
    own.sample = odbc::SampleSource{.file = sample()};
    return own;
}

Places Places::ofUser() {
    const std::filesystem::path own = variable("ORVENT_HOME");
    if (!own.empty()) {
        return in(std::filesystem::absolute(own));
    }
    const std::filesystem::path data = folder("XDG_DATA_HOME", ".local/share") / "orvent2";
    const bool named = variable("XDG_STATE_HOME").is_absolute() || variable("HOME").is_absolute();
    return {data, folder("XDG_CONFIG_HOME", ".config") / "Mapflow.conf",
            named ? folder("XDG_STATE_HOME", ".local/state") / "orvent2" : data / "states"};
}

}  // namespace orvent::app
