#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/dialogs.h"
#include "platform/settings_store.h"

namespace orvent::platform {

/// A store that goes on when the one behind it cannot be written: the value then lasts for this run, and the first such
/// fault is told. What is stored already is not written again.
class KeptSettings : public SettingsStore {
  public:
    KeptSettings(SettingsStore& stored, MessageBox& messages) : stored_(stored), messages_(messages) {}

    std::string value(const std::string& section, const std::string& key, const std::string& standard) override;
    void setValue(const std::string& section, const std::string& key, const std::string& value) override;

  private:
    SettingsStore& stored_;
    MessageBox& messages_;
    std::map<std::pair<std::string, std::string>, std::string> ofThisRun_;  ///< by section and key
    bool told_ = false;
};

}  // namespace orvent::platform
