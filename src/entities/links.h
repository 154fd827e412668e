#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "entities/keyed_collection.h"
#include "entities/link_types.h"
#include "entities/numbers.h"

namespace orvent::entities {

template <class Link>
class LinkCollection;

/// One end of a provider link: a value of one attribute flows into another.
class ProviderProperties {
  public:
    ProviderProperties(EdgeNumber lineIndex, std::string key, LinkType type, std::string name)
        : LineIndex(lineIndex), Provider_Type(type), Provider_Name(std::move(name)), key_(std::move(key)) {}

    EdgeNumber LineIndex;  ///< edge that draws the link in the open zoom view; 0 none yet, `kNoEdge` not drawable
    LinkType Provider_Type;
    std::string Provider_Name;  ///< the record set or activity that owns the far end

    /// The key of the far end, whole or relative (key_grammar.h); `LinkCollection::rekey` changes it.
    const std::string& Provider_Key() const { return key_; }

    const std::string& key() const { return key_; }
    LinkType type() const { return Provider_Type; }
    const std::string& name() const { return Provider_Name; }

  private:
    friend class LinkCollection<ProviderProperties>;
    std::string key_;
};

/// One end of a regulator link: a value governs a parameter, an output or a function input.
class RegulatorProperties {
  public:
    RegulatorProperties(EdgeNumber lineIndex, std::string key, LinkType type, std::string name)
        : LineIndex(lineIndex), Regulator_type(type), Regulator_name(std::move(name)), key_(std::move(key)) {}

    EdgeNumber LineIndex;
    LinkType Regulator_type;
    std::string Regulator_name;

    const std::string& Regulator_Key() const { return key_; }

    const std::string& key() const { return key_; }
    LinkType type() const { return Regulator_type; }
    const std::string& name() const { return Regulator_name; }

  private:
    friend class LinkCollection<RegulatorProperties>;
    std::string key_;
};

/// The links of one holder in one direction. A second `Add` under a key that is there already changes nothing and
/// gives the link that is there, which is what makes synchronising twice harmless.
template <class Link>
class LinkCollection : public KeyedCollection<Link, std::unique_ptr<Link>, OwnKeySlot<std::unique_ptr<Link>>> {
  public:
    Link& Add(const std::string& name, LinkType type, const std::string& key, EdgeNumber lineIndex = {}) {
        if (Link* known = this->Item(key)) {
            return *known;
        }
        auto link = std::make_unique<Link>(lineIndex, key, type, name);
        return this->append(std::move(link), key);
    }

    Link& Add(const Link& link) { return Add(link.name(), link.type(), link.key(), link.LineIndex); }

    /// Gives the link under `key` another key and keeps its place. False, and nothing changes, when there is no such
    /// link or another one bears the new key.
    bool rekey(const std::string& key, const std::string& newKey) {
        const int position = this->positionOf(key);
        if (position == 0 || (newKey != key && this->Item(newKey))) {
            return false;
        }
        auto link = this->Remove(position);
        link->key_ = newKey;
        this->insert(position, std::move(link), newKey);
        return true;
    }
};

using ProviderLinks = LinkCollection<ProviderProperties>;
using RegulatorLinks = LinkCollection<RegulatorProperties>;

}  // namespace orvent::entities
