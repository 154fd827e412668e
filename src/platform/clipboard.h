#pragma once

#include <string>

namespace orvent::platform {

/// What the programs of one desk hand each other.
class Clipboard {
  public:
    virtual ~Clipboard() = default;

    /// Puts a text there as content of a MIME type, and as plain text, so that it can go by mail.
    virtual void put(const std::string& text, const std::string& mime) = 0;
    /// The content of that type, or else the plain text; empty when there is neither.
    virtual std::string text(const std::string& mime) const = 0;
};

}  // namespace orvent::platform
