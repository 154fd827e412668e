#include "links/mirror_exchange.h"

#include <string>
#include <unordered_set>
#include <vector>

#include "links/link_mirrors.h"

namespace orvent::links {

using namespace entities;

namespace {

/// Whether a link stays within one activity. Then its mirror goes with what leaves, or with the node of a function that
/// is bound to what comes.
bool staysInside(LinkType type, const NearEnd& near, const FarEnd& far) {
    switch (type) {
        case LinkInput:
        case LinkActivityInput:
        case LinkParameterOutput:
        case LinkFunctionOutput:
        case LinkInputFunction:
            return true;
        default:
            return far.attribute && far.attribute->ParentKeyName == near.owner();
    }
}

}  // namespace

template <class Owner>
void MirrorExchange::gather(Owner& owner) {
    eachLinked(owner, [this](auto& member) {
        eachMirrorList(form_, member, nullptr, [&](const auto& link, auto& mirrors, const MirrorEnds& ends) {
            const std::string key = ends.near.keyAs(ends.far.mirror);
            const auto* mirror = mirrors.peek() ? mirrors.peek()->Item(key) : nullptr;
            if (!mirror) {
                return;
            }
            if (staysInside(link.type(), ends.near, ends.far)) {
                mirrors->Remove(key);
            } else {
                left(*mirror).emplace(mirror, &*mirrors);
            }
        });
    });
}

template <class Owner>
void MirrorExchange::write(Owner& owner) {
    eachLinked(owner, [this](auto& member) {
        eachMirrorList(form_, member, nullptr, [this](auto& link, auto& mirrors, const MirrorEnds& ends) {
            const auto& written = writeMirror(form_, link, mirrors, ends);
            left(written).erase(&written);
        });
    });
}

void MirrorExchange::leave(ActivityProperties& activity) {
    gather(activity);
}
void MirrorExchange::leave(RecordSetProperties& recordSet) {
    gather(recordSet);
}
void MirrorExchange::come(ActivityProperties& activity) {
    write(activity);
}
void MirrorExchange::come(RecordSetProperties& recordSet) {
    write(recordSet);
}

void MirrorExchange::finish() {
    // Some may be gone by now: a function that waits beside its activity takes its own mirrors with it. So the lists
    // are asked for what they still have.
    const auto removeAll = [](auto& mirrors) {
        std::unordered_set<decltype(mirrors.begin()->second)> lists;
        for (const auto& [_, list] : mirrors) {
            lists.insert(list);
        }
        for (auto* list : lists) {
            std::vector<std::string> keys;
            for (const auto& link : *list) {
                if (mirrors.contains(&link)) {
                    keys.push_back(link.key());
                }
            }
            for (const std::string& key : keys) {
                list->Remove(key);
            }
        }
        mirrors.clear();
    };
    removeAll(providers_);
    removeAll(regulators_);
}

}  // namespace orvent::links
