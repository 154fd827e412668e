#pragma once

#include <string>

namespace orvent::platform {

/// What becomes of an older file that is chosen to be written: the user is asked before it is replaced, or nobody asks,
/// because what is chosen is only a name.
enum class OldFile { askedAbout, onlyNamed };

/// Choosing a file that is to be written.
class SaveDialog {
  public:
    virtual ~SaveDialog() = default;

    /// The path, or empty when none was chosen; nothing is written. `filter` is "words|pattern", as in
    /// "Log Files (*.log)|*.log". The dialog starts in `folder`,
    /// which may be a file that is proposed.
    virtual std::string saveFile(const std::string& title, const std::string& filter, const std::string& folder,
                                 OldFile oldFile) = 0;
};

}  // namespace orvent::platform
