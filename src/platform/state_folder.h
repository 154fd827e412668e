#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvent::platform {

/// The folder of a user's files that outlive a run of the program: what is not saved yet, and earlier states. The files
/// are the user's own. Nothing here waits for the disk: what was written survives the program, not the machine.
///
/// A program writes its unsaved work under names of its own, which begin with its session. A lock tells whether a
/// session lives; the system lets it go with the process, however that ends.
class StateFolder {
  public:
    /// Makes nothing yet.
    explicit StateFolder(std::filesystem::path root) : root_(std::move(root)) {}
    ~StateFolder();
    StateFolder(const StateFolder&) = delete;
    StateFolder& operator=(const StateFolder&) = delete;

    /// The name of a file of this session. Throws a `Fault` when the folder cannot be made or locked.
    std::string ownName(const std::string& name);

    /// Writes a file whole: it is there with all of its text, or as it was. Throws a `Fault`.
    void put(const std::string& name, std::string_view text);
    /// Adds to a file's end. Throws a `Fault`.
    void append(const std::string& name, std::string_view text);
    /// Throws a `Fault` when it cannot be read.
    std::string read(const std::string& name) const;
    void drop(const std::string& name) noexcept;

    /// The files of sessions that have ended without dropping them, the oldest first. They are this session's from now
    /// on: no other program finds them while this one lives.
    std::vector<std::string> claimLeft();

    /// The names of the files in a folder of this one, in order of their names; nothing when there is none.
    std::vector<std::string> list(const std::string& folder) const;

  private:
    std::filesystem::path root_;
    std::string session_;
    std::vector<int> locks_;
    std::vector<std::string> claimed_;
};

}  // namespace orvent::platform
