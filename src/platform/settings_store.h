#pragma once

#include <string>

namespace orvent::platform {

/// The application key that all settings are kept under.
inline constexpr const char* kApplicationKey = "Mapflow";

/// The per-user store of settings by section and key. Values are UTF-8 and may hold any character, U+0000 included.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    virtual std::string value(const std::string& section, const std::string& key, const std::string& standard) = 0;
    virtual void setValue(const std::string& section, const std::string& key, const std::string& value) = 0;
};

}  // namespace orvent::platform
