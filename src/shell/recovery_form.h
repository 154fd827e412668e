#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/state_folder.h"

namespace orvent::shell {

/// The dialog that tells what a program that did not end properly has left.
class RecoveryForm {
  public:
    struct Row {
        std::string file;
        std::string name;     ///< of the scenario, or of the file where nobody can read it
        std::string when;     ///< of its last change, in local time
        std::string changes;  ///< what it had beyond the stored scenario, or why it cannot be brought back
        bool readable = false;
    };
    /// Opens the scenario of a file; false when it stays a file.
    using BringBack = std::function<bool(const std::string& file)>;

    RecoveryForm(platform::StateFolder& folder, const std::vector<std::string>& files, BringBack bringBack);

    std::string words() const;
    const std::vector<Row>& rows() const { return rows_; }

    /// Of the rows with these places, from 0 on; what was dealt with goes from the list.
    void cmdBringBack_Click(const std::vector<std::size_t>& places);
    void cmdDiscard_Click(const std::vector<std::size_t>& places);

  private:
    void remove(const std::vector<std::size_t>& places, const std::function<bool(const Row&)>& goes);

    platform::StateFolder& folder_;
    BringBack bringBack_;
    std::vector<Row> rows_;
};

}  // namespace orvent::shell
