#include "platform/settings_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <optional>

#include "platform/fault.h"
#include "platform/settings_text.h"
#include "platform/write_file.h"

namespace orvent::platform {

namespace {

/// Nobody else of the program's processes writes into the folder while it lives; where the file system knows no locks,
/// the last one who writes wins.
class FolderLock {
  public:
    explicit FolderLock(const std::filesystem::path& folder)
        : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        if (folder_ >= 0) {
            static_cast<void>(::flock(folder_, LOCK_EX));
        }
    }
    ~FolderLock() {
        if (folder_ >= 0) {
            ::close(folder_);
        }
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

  private:
    int folder_;
};

std::optional<SettingsText> settingsIn(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    return SettingsText(std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace

bool holdsSettings(const std::filesystem::path& path) {
    const std::optional<SettingsText> settings = settingsIn(path);
    return settings && settings->isSound();
}

bool SettingsFile::exists() const {
    std::error_code none;
    return std::filesystem::exists(path_, none);
}

std::string SettingsFile::value(const std::string& section, const std::string& key, const std::string& standard) {
    const std::optional<SettingsText> settings = settingsIn(path_);
    return settings ? settings->value(section, key).value_or(standard) : standard;
}

void SettingsFile::setValue(const std::string& section, const std::string& key, const std::string& value) {
    std::error_code fault;
    std::filesystem::path file = path_;
    if (std::filesystem::is_symlink(path_, fault)) {
        file = std::filesystem::weakly_canonical(path_, fault);  // the link stays
    }
    std::filesystem::create_directories(file.parent_path(), fault);
    const FolderLock lock(file.parent_path());
    SettingsText settings;
    if (exists()) {
        const std::optional<SettingsText> old = settingsIn(file);
        if (!old || !old->isSound()) {
            throw Fault("The settings file holds something else, and is left as it is:\n" + path_.string());
        }
        settings = *old;
    }
    settings.setValue(section, key, value);
    try {
        // It holds a password that is hardly more than hidden.
        writePrivateFile(file.string(), settings.text());
    } catch (const Fault&) {
        throw Fault("The settings file cannot be written:\n" + path_.string());
    }
}

}  // namespace orvent::platform
