#pragma once

#include <cstdint>
#include <string>

namespace orvent::shell {

/// "2026-11-26 14:05" in local time, for seconds since 1970; empty for 0.
std::string localTime(std::int64_t seconds);

}  // namespace orvent::shell
