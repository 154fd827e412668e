#include "platform/scramble.h"

namespace orvent::platform {

std::string ScramblePassword(std::string_view text) {
    constexpr unsigned kMask = 0x2D;
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        unsigned code = byte;
        // Codes 128 to 255 are the two-byte characters that begin with 0xC2 or 0xC3.
        if ((byte == 0xC2 || byte == 0xC3) && at + 1 < text.size()) {
            code = ((byte & 0x03U) << 6U) | (static_cast<unsigned char>(text[++at]) & 0x3FU);
        } else if (byte >= 0x80) {
            result.push_back(text[at]);
            continue;
        }
        code ^= kMask;
        if (code < 0x80) {
            result.push_back(static_cast<char>(code));
        } else {
            result.push_back(static_cast<char>(0xC0U | (code >> 6U)));
            result.push_back(static_cast<char>(0x80U | (code & 0x3FU)));
        }
    }
    return result;
}

}  // namespace orvent::platform
