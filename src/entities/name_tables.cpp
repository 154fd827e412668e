#include "entities/name_tables.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "platform/fault.h"

namespace orvent::entities {

void NameTable::clear() {
    rows_.assign(1, Row{{}, true});
    findAnew();
}

void NameTable::add(const std::string& name) {
    if (rows_.size() == 1 && isEmptyEntry(0)) {
        rows_.clear();
    }
    append(name);
}

void NameTable::take(const std::string& name) {
    const std::optional<std::int16_t> former = goneIndexOf(name);
    if (former) {
        rows_[static_cast<std::size_t>(*former)].gone = false;
        ++changes_;
    } else if (!indexOf(name)) {
        append(name);
    }
}

std::int16_t NameTable::keep(const std::string& name) {
    const std::optional<std::int16_t> stored = indexOf(name);
    if (const std::optional<std::int16_t> known = stored ? stored : goneIndexOf(name)) {
        return *known;
    }
    append(name);
    rows_.back().gone = true;
    return static_cast<std::int16_t>(rows_.size() - 1);
}

void NameTable::append(const std::string& name) {
    const auto index = platform::checkedI16(static_cast<long long>(rows_.size()), "Catalogue index");
    rows_.push_back({name, false});
    indices_.emplace(name, index);
    ++changes_;
}

void NameTable::reload(const std::vector<std::string>& names, bool keepIndices) {
    if (!keepIndices) {
        NameTable fresh;
        std::ranges::for_each(names, [&fresh](const std::string& name) { fresh.add(name); });
        rows_ = std::move(fresh.rows_);
        indices_ = std::move(fresh.indices_);
        ++changes_;
        return;
    }
    const std::unordered_set<std::string> stored(names.begin(), names.end());
    for (Row& row : rows_) {
        row.gone = !stored.contains(row.name);
    }
    ++changes_;
    for (const std::string& name : names) {
        take(name);
    }
    // What falls back on the first row must never get what a gone one means.
    if (rows() == 0 && !isEmptyEntry(static_cast<std::size_t>(first()))) {
        append({});
        rows_.back().gone = true;
    }
}

void NameTable::rename(std::int16_t index, const std::string& name) {
    row(index);  // the bounds
    rows_[static_cast<std::size_t>(index)].name = name;
    findAnew();
}

void NameTable::findAnew() {
    indices_.clear();
    for (const bool gone : {false, true}) {
        for (std::size_t at = 0; at < rows_.size(); ++at) {
            if (rows_[at].gone == gone) {
                indices_.emplace(rows_[at].name, static_cast<std::int16_t>(at));
            }
        }
    }
    ++changes_;
}

const NameTable::Row& NameTable::row(std::int16_t index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= rows_.size()) {
        throw platform::Fault("Subscript out of range: the catalogue has no entry " + std::to_string(index) + ".");
    }
    return rows_[static_cast<std::size_t>(index)];
}

std::string NameTable::shown(std::int16_t index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= rows_.size()) {
        return {};
    }
    const Row& found = row(index);
    return found.gone && !found.name.empty() ? found.name + " (gone)" : found.name;
}

std::optional<std::int16_t> NameTable::find(const std::string& name, bool gone) const {
    const auto found = indices_.find(name);
    const bool isIt = found != indices_.end() && rows_[static_cast<std::size_t>(found->second)].gone == gone;
    return isIt ? std::optional<std::int16_t>(found->second) : std::nullopt;
}

std::optional<std::int16_t> NameTable::indexOf(const std::string& name) const {
    return find(name, false);
}

std::optional<std::int16_t> NameTable::goneIndexOf(const std::string& name) const {
    return find(name, true);
}

std::int16_t NameTable::first() const {
    const auto index = [this](auto found) { return static_cast<std::int16_t>(found - rows_.begin()); };
    const auto present = std::ranges::find(rows_, false, &Row::gone);
    const auto empty = std::ranges::find(rows_, std::string(), &Row::name);
    return present != rows_.end() ? index(present) : empty != rows_.end() ? index(empty) : std::int16_t{0};
}

std::vector<std::int16_t> NameTable::listed(int held) const {
    std::vector<std::int16_t> indices;
    for (std::size_t at = 0; at < rows_.size(); ++at) {
        if (!rows_[at].gone || (static_cast<int>(at) == held && !rows_[at].name.empty())) {
            indices.push_back(static_cast<std::int16_t>(at));
        }
    }
    return indices;
}

std::int16_t CatalogueTables::keepActivityType(const std::string& name, const std::string& sql,
                                               const std::string& ldl) {
    const std::size_t before = activityTypes.size();
    const std::int16_t index = activityTypes.keep(name);
    if (activityTypes.size() > before) {
        activityTypeSql.resize(before);
        activityTypeSql.push_back(sql);
        activityTypeLdl.resize(before);
        activityTypeLdl.push_back(ldl);
    }
    return index;
}

}  // namespace orvent::entities
