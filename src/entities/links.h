#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "entities/keyed_collection.h"
#include "entities/link_types.h"

namespace orvent::entities {

/// One end of a provider link: a value of one attribute flows into another.
struct ProviderProperties {
    std::int32_t LineIndex = 0;  ///< edge that draws the link in the open zoom view; 0 none yet, -1 not drawable
    std::string Provider_Key;    ///< key of the far end, whole or relative (key_grammar.h); its collection's key
    LinkType Provider_Type = LinkUnset;
    std::string Provider_Name;  ///< the record set or activity that owns the far end

    const std::string& key() const { return Provider_Key; }
    LinkType type() const { return Provider_Type; }
    const std::string& name() const { return Provider_Name; }
};

/// One end of a regulator link: a value governs a parameter, an output or a function input.
struct RegulatorProperties {
    std::int32_t LineIndex = 0;
    std::string Regulator_Key;
    LinkType Regulator_type = LinkUnset;
    std::string Regulator_name;

    const std::string& key() const { return Regulator_Key; }
    LinkType type() const { return Regulator_type; }
    const std::string& name() const { return Regulator_name; }
};

/// The links of one holder in one direction. A second `Add` under a key that is there already changes nothing and
/// gives the link that is there, which is what makes synchronising twice harmless.
template <class Link>
class LinkCollection : public KeyedCollection<Link, std::unique_ptr<Link>, OwnKeySlot<std::unique_ptr<Link>>> {
  public:
    Link& Add(const std::string& name, LinkType type, const std::string& key, std::int32_t lineIndex = 0) {
        if (Link* known = this->Item(key)) {
            return *known;
        }
        auto link = std::make_unique<Link>(Link{lineIndex, key, type, name});
        return this->append(std::move(link), key);
    }

    Link& Add(const Link& link) { return Add(link.name(), link.type(), link.key(), link.LineIndex); }
};

using ProviderLinks = LinkCollection<ProviderProperties>;
using RegulatorLinks = LinkCollection<RegulatorProperties>;

}  // namespace orvent::entities
