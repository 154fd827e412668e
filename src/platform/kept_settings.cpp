#include "platform/kept_settings.h"

#include "platform/fault.h"

namespace orvent::platform {

std::string KeptSettings::value(const std::string& section, const std::string& key, const std::string& standard) {
    const auto kept = ofThisRun_.find({section, key});
    return kept == ofThisRun_.end() ? stored_.value(section, key, standard) : kept->second;
}

void KeptSettings::setValue(const std::string& section, const std::string& key, const std::string& value) {
    // A key that is not stored gives whatever standard is asked for.
    const bool isStored = this->value(section, key, value) == value && this->value(section, key, value + "?") == value;
    if (isStored) {
        return;
    }
    try {
        stored_.setValue(section, key, value);
        ofThisRun_.erase({section, key});
    } catch (const Fault& fault) {
        ofThisRun_[{section, key}] = value;
        if (!std::exchange(told_, true)) {
            messages_.tell(fault.description() + "\nWhat you choose lasts until the program ends.", {}, Icon::warning);
        }
    }
}

}  // namespace orvent::platform
