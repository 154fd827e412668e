#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvent::platform {

/// Gives the bytes of a file from one of them on: so many, or fewer where it ends.
using ReadAt = std::function<std::string(std::uint64_t from, std::size_t most)>;

/// The folder of a user's files that outlive a run of the program: what is not saved yet, and earlier states. The files
/// are the user's own. Nothing here waits for the disk: what was written survives the program, not the machine.
///
/// A program writes its unsaved work under names of its own, which begin with its session. A lock tells whether a
/// session lives; the system lets it go with the process, however that ends.
class StateFolder {
  public:
    static constexpr std::size_t kPart = 256U << 10U;

    /// Makes nothing yet. `part` says how many bytes of a large file are written in one go.
    explicit StateFolder(std::filesystem::path root, std::size_t part = kPart) : root_(std::move(root)), part_(part) {}
    ~StateFolder();
    StateFolder(const StateFolder&) = delete;
    StateFolder& operator=(const StateFolder&) = delete;

    std::size_t part() const { return part_; }

    /// The name of a file of this session. Throws a `Fault` when the folder cannot be made or locked.
    std::string ownName(const std::string& name);

    /// Writes a file part by part beside the one of that name, which it replaces at the end: that one is there with all
    /// of its text, or as it was. Each throws a `Fault`, and then nothing stays beside it.
    void begin(const std::string& name);
    void goOn(const std::string& name, std::string_view part);
    void end(const std::string& name);
    /// Drops what was begun.
    void giveUp(const std::string& name) noexcept;
    /// Adds to a file's end. Throws a `Fault`.
    void append(const std::string& name, std::string_view text);
    /// Throws a `Fault` when it cannot be read.
    std::string read(const std::string& name) const;
    /// Opens a file to read places of it. Throws a `Fault`, as the reading does.
    ReadAt reader(const std::string& name) const;
    /// Bytes; 0 for a file that is not there.
    std::uintmax_t size(const std::string& name) const;
    void drop(const std::string& name) noexcept;
    /// Gives a folder or file another name. Nothing happens when that is taken or nothing has the name.
    void rename(const std::string& name, const std::string& other) noexcept;

    /// The files of sessions that have ended without dropping them, the oldest first. They are this session's from now
    /// on: no other program finds them while this one lives.
    std::vector<std::string> claimLeft();

    /// The names of the whole files in a folder of this one, in order of their names; nothing when there is none.
    std::vector<std::string> list(const std::string& folder) const;
    /// The names of the folders in it, likewise.
    std::vector<std::string> folders(const std::string& folder) const;

  private:
    std::vector<std::string> names(const std::string& folder, std::filesystem::file_type type) const;

    std::filesystem::path root_;
    std::size_t part_;
    std::string session_;
    std::vector<int> locks_;
    std::vector<std::string> claimed_;
};

}  // namespace orvent::platform
