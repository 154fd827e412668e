#pragma once

#include <string>
#include <utility>
#include <vector>

#include "links/mirror_lists.h"

namespace orvent::links {

inline void setName(entities::ProviderProperties& link, const std::string& name) {
    link.Provider_Name = name;
}
inline void setName(entities::RegulatorProperties& link, const std::string& name) {
    link.Regulator_name = name;
}

/// Links that get other keys at one time, each in its place, also where they exchange their keys.
template <class Link>
class RekeyedLinks {
  public:
    void add(entities::LinkCollection<Link>& list, const Link& link, std::string key) {
        if (link.key() != key) {
            rows_.push_back({&list, &link, std::move(key)});
        }
    }

    void apply() {
        std::vector<Row> waiting;
        for (Row& row : rows_) {
            if (row.link->key() != row.key && !row.list->rekey(row.link->key(), row.key)) {
                // Another one bears it, which may be about to give it up.
                row.list->rekey(row.link->key(), "\n" + row.link->key());
                waiting.push_back(std::move(row));
            }
        }
        for (const Row& row : waiting) {
            row.list->Remove(row.key);
            row.list->rekey(row.link->key(), row.key);
        }
        rows_.clear();
    }

  private:
    struct Row {
        entities::LinkCollection<Link>* list;
        const Link* link;
        std::string key;
    };
    std::vector<Row> rows_;
};

/// The mirrors of the links of what is about to bear other keys. The far ends know it by the new ones afterwards, and
/// their lists keep their order, as edges keep what they draw.
class KeptMirrors {
  public:
    explicit KeptMirrors(canvas::Canvas& Form) : form_(Form) {}

    /// An owner or a member, which must live until `rekey`.
    template <class Entity>
    void hold(Entity& entity) {
        eachLinked(entity, [this](auto& member) {
            eachMirrorList(form_, member, nullptr, [&](const auto&, auto& mirrors, const MirrorEnds& ends) {
                auto* link = mirrors.peek() ? mirrors.peek()->Item(ends.near.keyAs(ends.far.mirror)) : nullptr;
                if (link) {
                    keep(*mirrors, *link, ends);
                }
            });
        });
    }

    /// The held entities bear their new keys now.
    void rekey() {
        rekey(providers_);
        rekey(regulators_);
    }

  private:
    template <class Link>
    struct Mirror {
        entities::LinkCollection<Link>* list;
        Link* link;
        NearEnd near;
        KeyForm form;
    };

    void keep(entities::ProviderLinks& list, entities::ProviderProperties& link, const MirrorEnds& ends) {
        providers_.push_back({&list, &link, ends.near, ends.far.mirror});
    }
    void keep(entities::RegulatorLinks& list, entities::RegulatorProperties& link, const MirrorEnds& ends) {
        regulators_.push_back({&list, &link, ends.near, ends.far.mirror});
    }

    template <class Link>
    static void rekey(std::vector<Mirror<Link>>& mirrors) {
        RekeyedLinks<Link> links;
        for (const Mirror<Link>& mirror : mirrors) {
            setName(*mirror.link, mirror.near.owner());
            links.add(*mirror.list, *mirror.link, mirror.near.keyAs(mirror.form));
        }
        links.apply();
        mirrors.clear();
    }

    canvas::Canvas& form_;
    std::vector<Mirror<entities::ProviderProperties>> providers_;
    std::vector<Mirror<entities::RegulatorProperties>> regulators_;
};

inline void setKey(entities::AttributeProperties& attribute, const std::string& key) {
    attribute.Key = key;
}
inline void setKey(entities::ParameterProperties& parameter, const std::string& key) {
    parameter.Key = key;
}
inline void setKey(entities::FunctionProperties& function, const std::string& key) {
    function.Function_Key = key;
    eachLinked(function, [&](entities::ParameterProperties& parameter) { parameter.ParentKeyName = key; });
}

/// Gives the member of a list another key, which no other one bears, at its place. It stays the same object.
template <class List>
void rekeyMember(canvas::Canvas& Form, List& list, const std::string& former, const std::string& now) {
    KeptMirrors mirrors(Form);
    const int position = list.positionOf(former);
    mirrors.hold(*list.Item(position));
    auto member = list.Remove(position);
    setKey(*member, now);
    list.insert(position, std::move(member), now);
    mirrors.rekey();
}

}  // namespace orvent::links
