#include "platform/write_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "platform/fault.h"
#include "platform/text.h"

namespace orvent::platform {

namespace {

[[noreturn]] void failOn(const std::string& path) {
    throw Fault(path + ": " + std::strerror(errno));
}

void writeAll(int file, std::string_view text, const std::string& path) {
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0 && errno != EINTR) {
            failOn(path);
        }
        text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
}

/// A device or a pipe takes what is written; nothing can be put in its place.
bool isStream(const std::string& path) {
    struct stat there {};
    return ::stat(path.c_str(), &there) == 0 && !S_ISREG(there.st_mode) && !S_ISDIR(there.st_mode);
}

void writeStream(const std::string& path, std::string_view text) {
    const int stream = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (stream < 0) {
        failOn(path);
    }
    try {
        writeAll(stream, text, path);
    } catch (const Fault&) {
        ::close(stream);
        throw;
    }
    if (::close(stream) != 0) {
        failOn(path);
    }
}

/// A file beside the one that is to be written. It goes again unless it was put in that one's place.
class FileBeside {
  public:
    FileBeside(const std::string& path, bool isPrivate) : path_(path) {
        struct stat old {};
        const bool exists = ::lstat(path.c_str(), &old) == 0;
        if (exists && S_ISREG(old.st_mode) && ::access(path.c_str(), W_OK) != 0) {
            failOn(path_);
        }
        beside_ = (std::filesystem::path(path).parent_path() / ".orvent-XXXXXX").string();
        file_ = ::mkstemp(beside_.data());
        if (file_ < 0) {
            failOn(path_);
        }
        constexpr mode_t kAll = 0666;
        const mode_t mask = ::umask(0);
        ::umask(mask);
        if (!isPrivate) {  // as it was made
            ::fchmod(file_, exists && S_ISREG(old.st_mode) ? old.st_mode & kAll : kAll & ~mask);
        }
    }
    FileBeside(const FileBeside&) = delete;
    ~FileBeside() {
        if (file_ >= 0) {
            ::close(file_);
        }
        if (!placed_) {
            ::unlink(beside_.c_str());
        }
    }

    void write(std::string_view text) {
        writeAll(file_, text, path_);
        if (::fsync(file_) != 0) {
            failOn(path_);
        }
    }

    void place() {
        if (::close(std::exchange(file_, -1)) != 0 || ::rename(beside_.c_str(), path_.c_str()) != 0) {
            failOn(path_);
        }
        placed_ = true;
    }

  private:
    const std::string& path_;
    std::string beside_;
    int file_ = -1;
    bool placed_ = false;
};

}  // namespace

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    if (!file.is_open() || file.bad()) {
        throw Fault(path + ": " + std::strerror(errno));
    }
    return text;
}

void writeFile(const std::string& path, std::string_view text) {
    if (isStream(path)) {
        return writeStream(path, text);
    }
    FileBeside file(path, false);
    file.write(text);
    file.place();
}

void writePrivateFile(const std::string& path, std::string_view text) {
    FileBeside file(path, true);
    file.write(text);
    file.place();
}

}  // namespace orvent::platform
