#pragma once

#include <filesystem>
#include <string>

#include "platform/settings_store.h"

namespace orvent::platform {

/// Whether a file holds settings: some other file, or one that was damaged, reads like one without any.
bool holdsSettings(const std::filesystem::path& path);

/// The settings of the user in an INI file. The file is replaced as a whole at each write, so a crash leaves the old or
/// the new one; changes of another process are kept. Only the user may read it.
class SettingsFile : public SettingsStore {
  public:
    explicit SettingsFile(std::filesystem::path path) : path_(std::move(path)) {}

    /// False before the very first write.
    bool exists() const;

    std::string value(const std::string& section, const std::string& key, const std::string& standard) override;
    /// Throws a `Fault` with the file's path when it cannot be written, or holds something else than settings.
    void setValue(const std::string& section, const std::string& key, const std::string& value) override;

  private:
    std::filesystem::path path_;
};

}  // namespace orvent::platform
