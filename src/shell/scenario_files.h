#pragma once

#include <string>
#include <vector>

#include "exchange/open_scenario.h"
#include "repository/scenario_windows.h"
#include "repository/services.h"
#include "shell/ports.h"

namespace orvent::shell {

/// Scenarios as files, and those that were used last.
class ScenarioFiles {
  public:
    static constexpr std::size_t kMostRecent = 10;

    ScenarioFiles(const Ports& ports, repository::Services& services, repository::ScenarioWindows& windows,
                  const exchange::ExchangePorts& exchange);

    /// Asks for a file and opens it.
    void open();
    /// Opens the scenario of a file as a new one under its own name, unsaved; a name that an open scenario has gets a
    /// number. What cannot be opened is told, and then nothing has changed.
    void open(const std::string& path);
    /// Asks for a file and writes the scenario there. A file that cannot be written whole stays as it was.
    void exportTo(const canvas::DrawForm& form);

    /// The last ones first.
    const std::vector<std::string>& recent() const { return recent_; }

  private:
    void openHere(const std::string& path);
    bool fill(const std::string& path);
    std::string proposalFor(const canvas::DrawForm& form) const;
    bool anySlot();
    std::string freeName(const std::string& name);
    void remember(const std::string& path);
    void forget(const std::string& path);
    void storeRecent();

    Ports ports_;
    repository::Services& services_;
    repository::ScenarioWindows& windows_;
    exchange::ExchangePorts exchange_;
    std::vector<std::string> recent_;
};

}  // namespace orvent::shell
