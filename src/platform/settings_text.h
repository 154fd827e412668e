#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace orvent::platform {

/// The settings that an INI file holds: keys with their values in named sections. Values are UTF-8 and may hold any
/// character. In the file a value that needs it stands in quotes, with back-slashes before what cannot stand there
/// itself, and an "@" doubled at its start; names of sections and keys have %XX (%UXXXX) for all but letters, digits,
/// "_", "-" and ".". The section General is written "%General", because "General" heads the keys of no section.
class SettingsText {
  public:
    SettingsText() = default;
    /// Reads all lines of the file that hold a setting, and passes over the others.
    explicit SettingsText(std::string_view file);

    /// Every line is empty, a note, a section, or a key with its value below a section, and all of it is UTF-8: some
    /// other file, or one that was damaged, is none.
    bool isSound() const { return sound_; }

    /// Nothing for a key that is not there, or that holds no text but a list or another kind of value.
    std::optional<std::string> value(const std::string& section, const std::string& key) const;
    void setValue(const std::string& section, const std::string& key, std::string_view value);

    /// The file: sections and keys in alphabetical order. What was read and not set since stands as it stood.
    std::string text() const;

  private:
    std::map<std::string, std::map<std::string, std::string>> sections_;  ///< the values as they stand in the file
    bool sound_ = true;
};

}  // namespace orvent::platform
