#include "shell/local_time.h"

#include <ctime>

namespace orvent::shell {

std::string localTime(std::int64_t seconds) {
    const std::time_t time = static_cast<std::time_t>(seconds);
    std::tm parts{};
    char text[32];
    if (seconds == 0 || !::localtime_r(&time, &parts)) {
        return {};
    }
    return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &parts)};
}

}  // namespace orvent::shell
