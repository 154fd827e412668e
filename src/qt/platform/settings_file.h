#pragma once

#include <QString>

#include "platform/settings_store.h"

namespace orvent::qt {

/// Whether a file holds settings: some other file, or one that was damaged, reads like one without any.
bool holdsSettings(const QString& path);

/// The settings of the user in an INI file. The file is replaced as a whole at each write, so a crash leaves the old or
/// the new one; changes of another process are kept.
class QtSettingsStore : public platform::SettingsStore {
  public:
    /// Uses the user's folder for configuration, in a file named by the application key.
    QtSettingsStore();
    explicit QtSettingsStore(QString path) : path_(std::move(path)) {}

    const QString& path() const { return path_; }
    /// False before the very first write.
    bool exists() const;

    std::string value(const std::string& section, const std::string& key, const std::string& standard) override;
    /// Throws a `Fault` with the file's path when it cannot be written, or holds something else than settings.
    void setValue(const std::string& section, const std::string& key, const std::string& value) override;

  private:
    QString path_;
};

}  // namespace orvent::qt
