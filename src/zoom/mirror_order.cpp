#include "zoom/mirror_order.h"

#include "zoom/mirror_lists.h"

namespace orvent::zoom {

using namespace entities;

namespace {

/// Shows each list that mirrors a link of an entity, some of them more than once.
template <class Visit>
class MirrorWalk {
  public:
    MirrorWalk(canvas::Canvas& Form, ActivityProperties* InDialog, Visit visit)
        : form_(Form), dialog_(InDialog), visit_(std::move(visit)) {}

    void walk(ActivityProperties& activity) {
        each(activity.Act_Inputs);
        each(activity.Act_Outputs);
        each(activity.Act_Parameters);
        for (FunctionProperties& function : activity.Act_Functions) {
            each(function.Function_Inputs);
            each(function.Function_Outputs);
        }
    }
    void walk(RecordSetProperties& recordSet) { each(recordSet.RecordSet_Outputs); }

  private:
    template <class Collection>
    void each(Lazy<Collection>& items) {
        for (auto& item : items) {
            walk(item);
        }
    }

    void walk(AttributeProperties& attribute) {
        links(Direction::ProvidedFrom, attribute, attribute.ProvidedFrom);
        links(Direction::ProviderFor, attribute, attribute.ProviderFor);
        links(Direction::RegulatedFrom, attribute, attribute.RegulatedFrom);
        links(Direction::RegulatorFor, attribute, attribute.RegulatorFor);
    }

    void walk(ParameterProperties& parameter) {
        links(Direction::RegulatedFrom, parameter, parameter.RegulatedFrom);
        links(Direction::RegulatorFor, parameter, parameter.RegulatorFor);
    }

    template <class Link>
    void links(Direction direction, const NearEnd& near, Lazy<LinkCollection<Link>>& held) {
        for (const Link& link : held) {
            const FarEnd far = findFarEnd(form_, direction, near, {link.name(), link.type(), link.key()}, dialog_);
            Lazy<LinkCollection<Link>>* mirrors = mirrorsOf<Link>(far, direction);
            if (mirrors && mirrors->count() > 1) {
                visit_(**mirrors);
            }
        }
    }

    canvas::Canvas& form_;
    ActivityProperties* dialog_;
    Visit visit_;
};

std::vector<std::string> orderOf(const auto& links) {
    std::vector<std::string> keys;
    for (const auto& link : links) {
        keys.push_back(link.key());
    }
    return keys;
}

using Orders = std::unordered_map<const void*, std::vector<std::string>>;

void note(canvas::Canvas& Form, auto& entity, ActivityProperties* InDialog, Orders& orders) {
    MirrorWalk(Form, InDialog, [&orders](auto& mirrors) {
        if (const auto [order, isNew] = orders.try_emplace(&mirrors); isNew) {
            order->second = orderOf(mirrors);
        }
    }).walk(entity);
}

void putBack(canvas::Canvas& Form, auto& entity, ActivityProperties* InDialog, Orders& orders) {
    MirrorWalk(Form, InDialog, [&orders](auto& mirrors) {
        const auto order = orders.find(&mirrors);
        if (order == orders.end()) {
            return;
        }
        if (orderOf(mirrors) != order->second) {
            mirrors.reorder(order->second);
        }
        orders.erase(order);
    }).walk(entity);
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

}  // namespace orvent::zoom
