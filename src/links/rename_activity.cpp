#include "links/rename_activity.h"

#include <memory>
#include <utility>
#include <vector>

#include "links/kept_mirrors.h"
#include "links/members.h"

namespace orvent::links {

using namespace entities;

std::string withNewHead(const std::string& text, const std::string& formerName, const std::string& newName) {
    const bool has = text.size() > formerName.size() && text.starts_with(formerName) && text[formerName.size()] == '.';
    return has ? newName + text.substr(formerName.size()) : text;
}

namespace {

/// The members in their order; the list is left empty, with its flags.
template <class List>
auto taken(Lazy<List>& list) {
    std::vector<decltype(list->share(1))> held;
    for (int at = 1; at <= list.count(); ++at) {
        held.push_back(list->share(at));
    }
    if (!held.empty()) {
        list->Clear();
    }
    return held;
}

class Renaming {
  public:
    Renaming(std::string formerName, std::string newName) : former_(std::move(formerName)), new_(std::move(newName)) {}

    /// Attributes and parameters of the activity itself.
    template <class List>
    void members(Lazy<List>& list) {
        for (auto& held : taken(list)) {
            held->ParentKeyName = new_;
            nameOf(*held) = withNewHead(nameOf(*held), former_, new_);
            held->Key = withNewHead(held->Key, former_, new_);
            relink(*held);
            held->Changed = true;
            list->append(held, held->Key);
        }
    }

    void functions(Lazy<Act_FunctionsCollection>& list) {
        for (auto& held : taken(list)) {
            FunctionProperties& function = *held;
            function.setParentKeyName(new_);
            function.Function_Key = withNewHead(function.Function_Key, former_, new_);
            function.Function_Name = withNewHead(function.Function_Name, former_, new_);
            function.Changed = true;
            eachMember(function, [&](ParameterProperties& parameter) {
                parameter.ParentKeyName = withNewHead(parameter.ParentKeyName, former_, new_);
                relink(parameter);
                parameter.Changed = true;
            });
            list->append(held, function.Function_Key);
        }
    }

  private:
    bool names(const std::string& name) const { return name == former_ || name.starts_with(former_ + "."); }

    template <class Entity>
    void relink(Entity& entity) {
        eachLinkList(entity, [&](Direction, auto& present) { links(present); });
    }

    /// A link that names the activity, or a function of it, keeps its place.
    template <class Link>
    void links(Lazy<LinkCollection<Link>>& present) {
        RekeyedLinks<Link> renamed;
        for (Link& link : present) {
            if (names(link.name()) || link.key().starts_with(former_ + ".")) {
                renamed.add(*present, link, keyOf(link.key()));
                setName(link, link.name() == former_ ? new_ : withNewHead(link.name(), former_, new_));
            }
        }
        renamed.apply();
    }

    /// A key of the activity itself, whole or relative, with the brought member that it may lead to.
    std::string keyOf(const std::string& key) const {
        for (const NodeKindCode kind : {KindInput, KindOutput, KindParameter}) {
            for (const std::string& head : {std::string(), former_}) {
                const std::string way = wholeKey(head, kind, "");
                if (key.starts_with(way)) {
                    return wholeKey(head.empty() ? "" : new_, kind, withNewHead(key.substr(way.size()), former_, new_));
                }
            }
        }
        return withNewHead(key, former_, new_);
    }

    std::string former_;
    std::string new_;
};

}  // namespace

void renameActivity(ActivityProperties& activity, const std::string& formerName, const std::string& newName) {
    Renaming renaming(formerName, newName);
    eachList(activity, [&](auto& list, NodeKindCode) { renaming.members(list); });
    renaming.functions(activity.Act_Functions);
    if (activity.Act_Inputs.count() > 0) {
        activity.Act_Inputs->Changed = true;
    }
    activity.Act_Name = newName;
    activity.Changed = true;
}

}  // namespace orvent::links
