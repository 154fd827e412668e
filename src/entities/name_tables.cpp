#include "entities/name_tables.h"

#include "platform/fault.h"

namespace orvent::entities {

void NameTable::clear() {
    names_.assign(1, std::string());
    indices_.clear();
    filled_ = false;
}

void NameTable::add(const std::string& name) {
    const auto index = platform::checkedI16(static_cast<long long>(rows()), "Catalogue index");
    if (filled_) {
        names_.push_back(name);
    } else {
        names_.front() = name;
        filled_ = true;
    }
    indices_.emplace(name, index);
}

void NameTable::rename(std::int16_t index, const std::string& newName) {
    name(index);  // the bounds
    std::vector<std::string> names = std::move(names_);
    names[static_cast<std::size_t>(index)] = newName;
    const bool filled = filled_;
    clear();
    if (!filled) {
        names_ = std::move(names);
        return;
    }
    for (const std::string& each : names) {
        add(each);
    }
}

const std::string& NameTable::name(std::int16_t index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= names_.size()) {
        throw platform::Fault("Subscript out of range: the catalogue has no entry " + std::to_string(index) + ".");
    }
    return names_[static_cast<std::size_t>(index)];
}

std::optional<std::int16_t> NameTable::indexOf(const std::string& name) const {
    const auto found = indices_.find(name);
    return found == indices_.end() ? std::nullopt : std::optional<std::int16_t>(found->second);
}

}  // namespace orvent::entities
