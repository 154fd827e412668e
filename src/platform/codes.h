#pragma once

#include <type_traits>

namespace orvent::platform {

/// The number by which a code is stored and told; also of a code that no name stands for.
template <class Code>
constexpr std::underlying_type_t<Code> numberOf(Code code) {
    return static_cast<std::underlying_type_t<Code>>(code);
}

}  // namespace orvent::platform
