#include "platform/state_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fstream>
#include <memory>
#include <utility>

#include "platform/fault.h"

namespace orvent::platform {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kOwn = 0600;
constexpr const char* kLock = ".lock";
constexpr const char* kBeside = ".new";             // behind the name of a file that is not whole yet
constexpr auto kForgotten = std::chrono::hours(1);  // nobody writes one file for longer
constexpr char kBehindSession = '-';

[[noreturn]] void failOn(const fs::path& path) {
    throw Fault(path.string() + ": " + std::strerror(errno));
}

/// A file that is open for writing.
class OpenFile {
  public:
    OpenFile(fs::path path, int flags) : path_(std::move(path)), file_(::open(path_.c_str(), flags | O_CLOEXEC, kOwn)) {
        if (file_ < 0) {
            failOn(path_);
        }
    }
    ~OpenFile() { ::close(file_); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    void write(std::string_view text) {
        while (!text.empty()) {
            const ssize_t written = ::write(file_, text.data(), text.size());
            if (written < 0 && errno != EINTR) {
                failOn(path_);
            }
            text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
        }
    }

  private:
    fs::path path_;
    int file_;
};

/// Takes a lock, or nothing while another process has it. The number of the open file.
int takeLock(const fs::path& path) {
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kOwn);
    if (file < 0) {
        return -1;
    }
    if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
        ::close(file);
        return -1;
    }
    return file;
}

}  // namespace

StateFolder::~StateFolder() {
    if (!session_.empty()) {
        drop(session_ + kLock);
    }
    for (const std::string& session : claimed_) {
        const std::vector<std::string> files = list({});
        const auto isOf = [&session](const std::string& file) { return file.starts_with(session + kBehindSession); };
        if (std::ranges::none_of(files, isOf)) {
            drop(session + kLock);
        }
    }
    for (const int lock : locks_) {
        ::close(lock);
    }
}

std::string StateFolder::ownName(const std::string& name) {
    if (session_.empty()) {
        std::error_code failed;
        fs::create_directories(root_, failed);
        if (failed) {
            throw Fault(root_.string() + ": " + failed.message());
        }
        // The number of a process comes again, so a session that has left something keeps its name for itself.
        std::string session;
        int lock = -1;
        for (int number = 1; lock < 0; ++number) {
            session = std::to_string(::getpid()) + "." + std::to_string(number);
            std::error_code unknown;
            const bool taken = fs::exists(root_ / (session + kLock), unknown);
            lock = taken ? -1 : takeLock(root_ / (session + kLock));
            if (lock < 0 && !taken) {
                failOn(root_ / (session + kLock));
            }
        }
        locks_.push_back(lock);
        session_ = session;
    }
    return session_ + kBehindSession + name;
}

void StateFolder::begin(const std::string& name) {
    const fs::path path = root_ / name;
    std::error_code ignored;
    fs::create_directories(path.parent_path(), ignored);
    for (const fs::directory_entry& beside : fs::directory_iterator(path.parent_path(), ignored)) {
        const auto age = fs::file_time_type::clock::now() - beside.last_write_time(ignored);
        if (beside.path().extension() == kBeside && age > kForgotten) {
            fs::remove(beside.path(), ignored);  // a program that was killed has left it
        }
    }
    OpenFile(path.string() + kBeside, O_WRONLY | O_CREAT | O_TRUNC);
}

void StateFolder::goOn(const std::string& name, std::string_view part) {
    try {
        append(name + kBeside, part);
    } catch (const Fault&) {
        giveUp(name);
        throw;
    }
}

void StateFolder::end(const std::string& name) {
    const fs::path path = root_ / name;
    if (::rename((path.string() + kBeside).c_str(), path.c_str()) != 0) {
        const int why = errno;
        giveUp(name);
        errno = why;
        failOn(path);
    }
}

void StateFolder::giveUp(const std::string& name) noexcept {
    ::unlink((root_ / name).string().append(kBeside).c_str());
}

void StateFolder::append(const std::string& name, std::string_view text) {
    OpenFile(root_ / name, O_WRONLY | O_APPEND).write(text);
}

std::string StateFolder::read(const std::string& name) const {
    return reader(name)(0, static_cast<std::size_t>(size(name)));
}

ReadAt StateFolder::reader(const std::string& name) const {
    const fs::path path = root_ / name;
    const auto file = std::make_shared<std::ifstream>(path, std::ios::binary);
    if (!file->is_open()) {
        failOn(path);
    }
    return [path, file](std::uint64_t from, std::size_t most) {
        std::string text(most, '\0');
        file->clear();
        file->seekg(static_cast<std::streamoff>(from));
        file->read(text.data(), static_cast<std::streamsize>(most));
        if (file->bad()) {
            failOn(path);
        }
        text.resize(static_cast<std::size_t>(file->gcount()));
        return text;
    };
}

std::uintmax_t StateFolder::size(const std::string& name) const {
    std::error_code absent;
    const std::uintmax_t bytes = fs::file_size(root_ / name, absent);
    return absent ? 0 : bytes;
}

void StateFolder::rename(const std::string& name, const std::string& other) noexcept {
    std::error_code unknown;
    if (!fs::exists(root_ / other, unknown)) {
        fs::rename(root_ / name, root_ / other, unknown);
    }
}

void StateFolder::drop(const std::string& name) noexcept {
    ::unlink((root_ / name).c_str());
}

std::vector<std::string> StateFolder::claimLeft() {
    std::vector<std::pair<fs::file_time_type, std::string>> left;
    for (const std::string& file : list({})) {
        const std::string session = file.substr(0, file.find(kBehindSession));
        if (file.ends_with(kLock) || session == session_) {
            continue;
        }
        if (std::ranges::find(claimed_, session) == claimed_.end()) {
            const int lock = takeLock(root_ / (session + kLock));
            if (lock < 0) {
                continue;
            }
            locks_.push_back(lock);
            claimed_.push_back(session);
        }
        std::error_code unknown;
        left.emplace_back(fs::last_write_time(root_ / file, unknown), file);
    }
    std::ranges::sort(left);
    std::vector<std::string> files;
    for (auto& [time, file] : left) {
        files.push_back(std::move(file));
    }
    return files;
}

std::vector<std::string> StateFolder::list(const std::string& folder) const {
    return names(folder, fs::file_type::regular);
}

std::vector<std::string> StateFolder::folders(const std::string& folder) const {
    return names(folder, fs::file_type::directory);
}

std::vector<std::string> StateFolder::names(const std::string& folder, fs::file_type type) const {
    std::vector<std::string> found;
    std::error_code ended;
    for (fs::directory_iterator at(root_ / folder, ended); !ended && at != fs::directory_iterator();
         at.increment(ended)) {
        if (at->status(ended).type() == type && at->path().extension() != kBeside) {
            found.push_back(at->path().filename().string());
        }
    }
    std::ranges::sort(found);
    return found;
}

}  // namespace orvent::platform
