#include "zoom/member_order.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "canvas/labels.h"
#include "entities/members.h"

namespace orvent::zoom {

using namespace entities;

void MemberOrder::keep(const std::string& owner, NodeKindCode kind, const std::vector<std::string>& keys) {
    std::vector<std::string>& order = orders_[{owner, kind}];
    if (order.empty()) {
        order = keys;
        return;
    }
    const std::unordered_set<std::string> known(order.begin(), order.end());
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(order),
                 [&](const std::string& key) { return !known.count(key); });
}

void MemberOrder::rename(const std::string& owner, NodeKindCode kind, const std::string& former,
                         const std::string& now) {
    if (const auto list = orders_.find({owner, kind}); list != orders_.end()) {
        std::vector<std::string>& order = list->second;
        std::erase(order, now);  // one that was there under this name is gone
        std::replace(order.begin(), order.end(), former, now);
    }
    if (kind == KindFunction) {
        for (const NodeKindCode parameters : {KindFunctionInput, KindFunctionOutput}) {
            if (auto own = orders_.extract({former, parameters})) {
                own.key().first = now;
                orders_.insert(std::move(own));
            }
        }
    }
}

void MemberOrder::forgetFunction(const std::string& key) {
    orders_.erase({key, KindFunctionInput});
    orders_.erase({key, KindFunctionOutput});
}

void MemberOrder::giveBack(canvas::LabelsD& node) {
    if (orders_.empty()) {
        return;
    }
    if (ActivityProperties* activity = node.activity()) {
        giveBackAll(*activity, activity->Act_Name);
        giveBack(activity->Act_Functions, activity->Act_Name, KindFunction);
        for (FunctionProperties& function : activity->Act_Functions) {
            giveBackAll(function, function.Function_Key);
        }
    } else if (RecordSetProperties* recordSet = node.recordSet()) {
        giveBackAll(*recordSet, recordSet->RecordSet_Name);
    } else if (auto* function = node.entity<FunctionProperties>()) {
        giveBackAll(*function, function->Function_Key);
    }
}

template <class Owner>
void MemberOrder::giveBackAll(Owner& owner, const std::string& name) {
    eachList(owner, [&](auto& items, NodeKindCode kind) { giveBack(items, name, kind); });
}

template <class Items>
void MemberOrder::giveBack(Lazy<Items>& items, const std::string& owner, NodeKindCode kind) {
    if (const auto order = orders_.extract({owner, kind}); !order.empty() && items.peek()) {
        items->reorder(order.mapped());
    }
}

}  // namespace orvent::zoom
