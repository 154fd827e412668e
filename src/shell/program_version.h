#pragma once

#include <string>

namespace orvent::shell {

/// The version of this program, as documents name who wrote them.
std::string programVersion();

}  // namespace orvent::shell
