#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace orvent::platform {

/// A fault of the run: bad input or a missing item that ends the step at hand. `what()` is its description, in words
/// that may be shown to the user. It is caught once per command (or by the handler that the product tells).
class Fault : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;

    std::string description() const { return what(); }
};

/// The value as a repository identifier or stored code, which are signed 16-bit. Throws a `Fault` that names `what`
/// when it does not fit; a value is never wrapped.
std::int16_t checkedI16(long long value, const char* what);

}  // namespace orvent::platform
