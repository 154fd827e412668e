#include "links/mirror_exchange.h"

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
        eachMirrorList(form_, member, nullptr, [this](const auto& link, auto& mirrors, const MirrorEnds& ends) {
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
    const auto removeAll = [](auto& mirrors) {
        for (const auto& [link, list] : mirrors) {
            list->Remove(std::string(link->key()));
        }
        mirrors.clear();
    };
    removeAll(providers_);
    removeAll(regulators_);
}

}  // namespace orvent::links
