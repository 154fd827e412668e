#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace orvent::entities {

/// A zero-based table of catalogue names. Entities hold indices into it, the repository holds the names. It is never
/// empty: with no rows it holds one empty entry, so that index 0 is always in bounds.
class NameTable {
  public:
    NameTable() { clear(); }

    /// Starts a reload: one single empty entry.
    void clear();

    /// Adds the name behind the last row. The first one replaces the empty entry. Throws a `Fault` beyond 32768 rows.
    void add(const std::string& name);

    /// Replaces the name at an index.
    void rename(std::int16_t index, const std::string& name);

    /// The name at an index; throws a `Fault` when the index is out of bounds.
    const std::string& name(std::int16_t index) const;

    /// The index of the first exact, case-sensitive match.
    std::optional<std::int16_t> indexOf(const std::string& name) const;

    /// How many entries there are, the single empty one included.
    std::size_t size() const { return names_.size(); }

    /// How many rows were added.
    std::size_t rows() const { return filled_ ? names_.size() : 0; }

  private:
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::int16_t> indices_;
    bool filled_ = false;
};

/// The catalogue in memory. The SQL and LDL texts stand parallel to the activity type names.
struct CatalogueTables {
    NameTable dataTypes;
    NameTable functionTypes;
    NameTable activityTypes;
    std::vector<std::string> activityTypeSql{std::string()};
    std::vector<std::string> activityTypeLdl{std::string()};
};

/// The data type that stands for the provider's own type.
inline constexpr const char* kDefinedBySource = "[DEFINED BY SOURCE]";

}  // namespace orvent::entities
