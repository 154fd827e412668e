#pragma once

#include <cstdint>
#include <string>

#include "entities/keyed_collection.h"

namespace orvent::statements {

// A choice of record set attributes as plain data. The wizard keeps its choices in its lists and has no use for it.

struct LDLRecItem {
    std::int16_t Position = 0;  ///< 1-based
    std::int16_t Selected = 0;
    std::string Caption;
    std::string Key;
};

/// The attributes of one record set, keyed by `Key`.
class LDLRecordSet : public entities::KeyedCollection<LDLRecItem> {
  public:
    std::string RSName;

    /// A new item behind the others. A taken key is a `Fault`.
    LDLRecItem& Add(const std::string& caption, const std::string& key);

    /// The item's `Position`. An unknown key is a `Fault`.
    std::int16_t GetItemPos(const std::string& key) const;

    /// Sets `Selected` and gives the `Caption`. An unknown key is a `Fault`.
    const std::string& MarkAndGetItem(const std::string& key);

  private:
    const LDLRecItem& known(const std::string& key) const;
};

/// Record sets keyed by `RSName`.
class LDLRecCollection : public entities::KeyedCollection<LDLRecordSet> {
  public:
    /// A taken name is a `Fault`.
    LDLRecordSet& Add(const std::string& name);
};

}  // namespace orvent::statements
