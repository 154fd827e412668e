#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvent::platform {

/// The program's folder: the per-user data folder that holds the script, the help file, LDLS and Logs.
class ProgramFolder {
  public:
    explicit ProgramFolder(std::filesystem::path root) : root_(std::move(root)) {}

    const std::filesystem::path& root() const { return root_; }

    /// The folder followed by `literal`, a path text that begins with and is separated by back-slashes, such as
    /// "\ORVENTII.sql"; the back-slashes become the system's separator.
    std::string path(std::string_view literal) const;

    /// `path(literal)` + `name` + `extension`, for a file that is named by the user. Throws a `Fault` when `name` holds
    /// a character that cannot stand in a file name, so that no name leads out of its folder.
    std::string file(std::string_view literal, std::string_view name, std::string_view extension) const;

  private:
    std::filesystem::path root_;
};

}  // namespace orvent::platform
