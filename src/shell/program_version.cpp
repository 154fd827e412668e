#include "shell/program_version.h"

namespace orvent::shell {

std::string programVersion() {
    return ORVENT_VERSION;
}

}  // namespace orvent::shell
