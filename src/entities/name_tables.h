#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace orvent::entities {

/// A zero-based table of catalogue names. Entities hold indices into it, the repository holds the names. It is never
/// empty: with no rows it holds one single empty entry, so that index 0 is always in bounds.
///
/// A row whose name is stored no more may stay as gone, for entities that hold its index. It is no match for its name,
/// and lists show it only where the entity at hand has it.
class NameTable {
  public:
    NameTable() { clear(); }

    /// One single empty entry.
    void clear();

    /// Adds the name behind the last row. The first one replaces the single empty entry. Throws a `Fault` beyond 32768
    /// rows.
    void add(const std::string& name);

    /// The name is stored by now: a gone row of that name comes back, and without one it is added behind the last row,
    /// even where that is the empty entry.
    void take(const std::string& name);

    /// The index of a name, stored or gone; one that is not there becomes a gone row.
    std::int16_t keep(const std::string& name);

    /// The names as they are stored now, in their order. With `keepIndices` every index goes on meaning its name: what
    /// is stored no more is gone, what is new comes behind, what returns has its former index. Otherwise the table
    /// becomes `names`.
    void reload(const std::vector<std::string>& names, bool keepIndices);

    /// Replaces the name at an index.
    void rename(std::int16_t index, const std::string& name);

    /// The name at an index, also that of a gone row; throws a `Fault` when the index is out of bounds.
    const std::string& name(std::int16_t index) const { return row(index).name; }
    bool isGone(std::int16_t index) const { return row(index).gone; }

    /// The name as lists show it, "X (gone)" for a gone one; empty when the index is out of bounds.
    std::string shown(std::int16_t index) const;

    /// The index of the first exact, case-sensitive match that is not gone.
    std::optional<std::int16_t> indexOf(const std::string& name) const;
    /// The same among the gone rows.
    std::optional<std::int16_t> goneIndexOf(const std::string& name) const;

    /// The index of the first row that is not gone; without one, that of the empty entry.
    std::int16_t first() const;

    /// The indices of the rows that a list shows, in order: all that are not gone, and that of the entity at hand.
    std::vector<std::int16_t> listed(int held = -1) const;

    /// How many entries there are, gone ones and the empty one included.
    std::size_t size() const { return rows_.size(); }

    /// How many rows are not gone.
    std::size_t rows() const { return listed().size(); }

    /// Another number after every change.
    std::uint32_t changes() const { return changes_; }

  private:
    struct Row {
        std::string name;
        bool gone = false;
    };
    const Row& row(std::int16_t index) const;
    std::optional<std::int16_t> find(const std::string& name, bool gone) const;
    bool isEmptyEntry(std::size_t at) const { return rows_[at].gone && rows_[at].name.empty(); }
    void append(const std::string& name);
    void findAnew();

    std::vector<Row> rows_;  ///< the empty entry is a gone row without a name
    std::unordered_map<std::string, std::int16_t> indices_;
    std::uint32_t changes_ = 0;
};

/// The catalogue in memory. The SQL and LDL texts stand parallel to the activity type names.
struct CatalogueTables {
    NameTable dataTypes;
    NameTable functionTypes;
    NameTable activityTypes;
    std::vector<std::string> activityTypeSql{std::string()};
    std::vector<std::string> activityTypeLdl{std::string()};

    /// `NameTable::keep` for an activity type; one that is not there brings its texts.
    std::int16_t keepActivityType(const std::string& name, const std::string& sql, const std::string& ldl);
};

/// The data type that stands for the provider's own type.
inline constexpr const char* kDefinedBySource = "[DEFINED BY SOURCE]";

}  // namespace orvent::entities
