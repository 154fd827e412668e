#include "links/mirror_order.h"

#include "links/mirror_lists.h"

namespace orvent::links {

using namespace entities;

namespace {

/// Shows each list that mirrors a link of an owner, and that has an order, some of them more than once.
template <class Owner, class Visit>
void eachOrder(canvas::Canvas& Form, Owner& owner, ActivityProperties* InDialog, Visit visit) {
    eachLinked(owner, [&](auto& member) {
        eachMirrorList(Form, member, InDialog, [&](const auto&, auto& mirrors, const MirrorEnds&) {
            if (mirrors.count() > 1) {
                visit(*mirrors);
            }
        });
    });
}

std::vector<std::string> orderOf(const auto& links) {
    std::vector<std::string> keys;
    for (const auto& link : links) {
        keys.push_back(link.key());
    }
    return keys;
}

using Orders = std::unordered_map<const void*, std::vector<std::string>>;

void note(canvas::Canvas& Form, auto& entity, ActivityProperties* InDialog, Orders& orders) {
    eachOrder(Form, entity, InDialog, [&orders](auto& mirrors) {
        if (const auto [order, isNew] = orders.try_emplace(&mirrors); isNew) {
            order->second = orderOf(mirrors);
        }
    });
}

void putBack(canvas::Canvas& Form, auto& entity, ActivityProperties* InDialog, Orders& orders) {
    eachOrder(Form, entity, InDialog, [&orders](auto& mirrors) {
        const auto order = orders.find(&mirrors);
        if (order == orders.end()) {
            return;
        }
        if (orderOf(mirrors) != order->second) {
            mirrors.reorder(order->second);
        }
        orders.erase(order);
    });
}

}  // namespace

MirrorOrder::MirrorOrder(canvas::Canvas& Form, ActivityProperties& activity, ActivityProperties* InDialog) {
    note(Form, activity, InDialog, orders_);
}

MirrorOrder::MirrorOrder(canvas::Canvas& Form, RecordSetProperties& recordSet) {
    note(Form, recordSet, nullptr, orders_);
}

void MirrorOrder::restore(canvas::Canvas& Form, ActivityProperties& activity, ActivityProperties* InDialog) {
    putBack(Form, activity, InDialog, orders_);
}

void MirrorOrder::restore(canvas::Canvas& Form, RecordSetProperties& recordSet) {
    putBack(Form, recordSet, nullptr, orders_);
}

}  // namespace orvent::links
