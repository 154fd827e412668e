#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvent::platform {

/// Upper case and lower case of ASCII letters; all other bytes stay.
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);

/// Equal but for the case of ASCII letters.
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// `text` without white space (space, tab, line ends) at both ends.
std::string_view trimmed(std::string_view text);

/// The whole trimmed text as a number in the C locale, or empty when it is none. Infinities, not-a-number words and
/// hexadecimal are no numbers.
std::optional<double> parseNumber(std::string_view text);

/// The whole trimmed text as a decimal integer, or empty.
std::optional<long long> parseInteger(std::string_view text);

/// The shortest decimal text of a 32-bit float that reads back as the same float, C locale ("450", "0.1").
std::string numberText(float value);

/// The bytes of a file. Throws a `Fault` with the path when it cannot be read.
std::string readFile(const std::string& path);

/// Writes `text` to the file, replacing an old one, or the link that stands there. It is written beside and put in its
/// place when it is whole, so that a disk that fills up costs nothing. Throws a `Fault` with the path and the system's
/// words.
void writeFile(const std::string& path, std::string_view text);

}  // namespace orvent::platform
