#include "analysis/outline.h"

#include <algorithm>
#include <optional>

#include "canvas/owners.h"
#include "layout/flow_graph.h"
#include "links/far_end.h"
#include "links/members.h"

namespace orvent::analysis {

using namespace entities;
using canvas::LabelsD;

namespace {

using Rows = std::vector<std::unique_ptr<Outline::Row>>;

constexpr std::size_t kMostRenewed = 200;  // more nodes are cheaper to be shown anew as a whole

/// Runs `visit(function or nothing, list, kind)` on each list of members of a node, a function's behind its own.
template <class Visit>
void eachOwnList(const LabelsD& node, Visit visit) {
    canvas::withOwner(node, [&](const auto& owner) {
        eachList(owner, [&](const auto& list, NodeKindCode kind) { visit(list, kind); });
    });
}

const FunctionProperties* functionAt(const LabelsD& node, const Place& place) {
    const ActivityProperties* activity = node.activity();
    const Act_FunctionsCollection* functions = activity ? activity->Act_Functions.peek() : nullptr;
    return functions ? functions->Item(place.function) : nullptr;
}

/// Runs `visit(member)` on what stands at a place of a node, be it an attribute or a parameter.
template <class Visit>
void withMember(const LabelsD& node, const Place& place, Visit visit) {
    const auto look = [&](const auto& owner) {
        withList(owner, place.list, [&](const auto& list, NodeKindCode) {
            if (const auto* member = list.peek() ? list.peek()->Item(place.member) : nullptr) {
                visit(*member);
            }
        });
    };
    if (place.function > 0) {
        if (const FunctionProperties* function = functionAt(node, place); function && place.member > 0) {
            look(*function);
        }
    } else if (place.member > 0) {
        canvas::withOwner(node, look);
    }
}

/// A link of a member: which way it leads, and where.
struct Link {
    links::Direction direction;
    links::LinkData data;
};

template <class Member>
int linksOf(const Member& member) {
    int count = member.RegulatedFrom.count() + member.RegulatorFor.count();
    if constexpr (requires { member.ProvidedFrom; }) {
        count += member.ProvidedFrom.count() + member.ProviderFor.count();
    }
    return count;
}

/// The link at a 1-based position among all of a member.
template <class Member>
std::optional<Link> linkAt(const Member& member, int position) {
    std::optional<Link> found;
    const auto look = [&](const auto& list, links::Direction direction) {
        if (!found && position > 0 && position <= list.count()) {
            const auto& link = *list.peek()->Item(position);
            found.emplace(Link{direction, {link.name(), link.type(), link.key()}});
        }
        position -= list.count();
    };
    if constexpr (requires { member.ProvidedFrom; }) {
        look(member.ProvidedFrom, links::Direction::ProvidedFrom);
        look(member.ProviderFor, links::Direction::ProviderFor);
    }
    look(member.RegulatedFrom, links::Direction::RegulatedFrom);
    look(member.RegulatorFor, links::Direction::RegulatorFor);
    return found;
}

const char* wayOf(links::Direction direction) {
    switch (direction) {
        case links::Direction::ProvidedFrom:
            return "from ";
        case links::Direction::ProviderFor:
            return "to ";
        case links::Direction::RegulatedFrom:
            return "set by ";
        case links::Direction::RegulatorFor:
            break;
    }
    return "sets ";
}

/// The owner of a far end and its name, as one reads it; where it is out of reach, what the link says.
template <class Member>
std::string farWords(const canvas::Canvas& canvas, const Member& member, const Link& link) {
    const links::FarEndView far = links::findFarEnd(canvas, link.direction, links::NearEnd(member), link.data, nullptr);
    if (far.attribute) {
        return far.attribute->ParentKeyName + "." + far.attribute->Attribute_Name;
    }
    if (far.parameter) {
        return far.parameter->ParentKeyName + "." + far.parameter->Parameter_Name;
    }
    return link.data.key;
}

std::string_view titleOfList(NodeKindCode kind) {
    switch (kind) {
        case KindInput:
            return "Input";
        case KindOutput:
            return "Output";
        case KindParameter:
            return "Parameter";
        case KindFunctionInput:
            return "Function input";
        case KindFunctionOutput:
            return "Function output";
        case KindFunction:
            return "Function";
        default:
            return "Attribute";
    }
}

/// The position of that very member in a list of the node, with the list.
template <class Member>
Place placeOf(const LabelsD& node, const Member& sought) {
    Place place{node.Index()};
    const auto look = [&](const auto& owner, std::int32_t function) {
        eachList(owner, [&](const auto& list, NodeKindCode kind) {
            std::int32_t position = 0;
            for (const auto& member : list) {
                ++position;
                if (static_cast<const void*>(&member) == &sought) {
                    place = {node.Index(), kind, function, position};
                }
            }
        });
    };
    canvas::withOwner(node, [&](const auto& owner) { look(owner, 0); });
    if (const ActivityProperties* activity = node.activity()) {
        std::int32_t position = 0;
        for (const FunctionProperties& function : activity->Act_Functions) {
            look(function, ++position);
        }
    }
    return place;
}

Outline::Row* rowAt(const Rows& rows, const Place& place) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row->place == place; });
    return found == rows.end() ? nullptr : found->get();
}

}  // namespace

Outline::Outline(const canvas::Canvas& canvas, const CatalogueTables& tables) : canvas_(canvas), tables_(tables) {
    build(order());
}

/// Parts that no edge joins stand one behind the other.
std::vector<canvas::NodeNumber> Outline::order() const {
    std::vector<canvas::NodeNumber> nodes;
    std::vector<std::int32_t> places(static_cast<std::size_t>(canvas_.LabelsNo) + 1, -1);
    for (const LabelsD& node : canvas_.Labels) {
        if (node.activity() || node.recordSet()) {
            places[static_cast<std::size_t>(node.Index())] = static_cast<std::int32_t>(nodes.size());
            nodes.push_back(node.Index());
        }
    }
    const auto placeOfNode = [&](canvas::NodeNumber node) {
        const bool known = canvas::isGiven(node) && static_cast<std::size_t>(node) < places.size();
        return known ? places[static_cast<std::size_t>(node)] : -1;
    };
    std::vector<layout::Arc> arcs;
    for (const canvas::LinesD& edge : canvas_.Lines) {
        const std::int32_t from = placeOfNode(edge.FromLabel());
        const std::int32_t to = placeOfNode(edge.ToLabel());
        if (from >= 0 && to >= 0 && from != to) {
            arcs.push_back({from, to});
        }
    }
    std::vector<std::int32_t> flow = layout::flowOrder(nodes.size(), arcs);
    const std::vector<std::int32_t> parts = layout::partsOf(nodes.size(), arcs);
    std::stable_sort(flow.begin(), flow.end(), [&](std::int32_t a, std::int32_t b) {
        return parts[static_cast<std::size_t>(a)] < parts[static_cast<std::size_t>(b)];
    });
    std::vector<canvas::NodeNumber> order;
    order.reserve(flow.size());
    for (const std::int32_t place : flow) {
        order.push_back(nodes[static_cast<std::size_t>(place)]);
    }
    return order;
}

void Outline::build(const std::vector<canvas::NodeNumber>& order) {
    roots_.clear();
    order_ = order;
    byNode_.assign(static_cast<std::size_t>(canvas_.LabelsNo) + 1, nullptr);
    roots_.reserve(order.size());
    for (const canvas::NodeNumber node : order) {
        roots_.push_back(std::make_unique<Row>(Row{{node}, 0, nullptr, static_cast<int>(roots_.size())}));
        byNode_[static_cast<std::size_t>(node)] = roots_.back().get();
    }
}

Outline::Row* Outline::rootOf(canvas::NodeNumber node) const {
    const bool known = canvas::isGiven(node) && static_cast<std::size_t>(node) < byNode_.size();
    return known ? byNode_[static_cast<std::size_t>(node)] : nullptr;
}

const Rows& Outline::rowsOf(Row& row) const {
    if (!row.filled) {
        row.filled = true;
        row.rows = makeRows(row);
    }
    return row.rows;
}

bool Outline::hasRows(const Row& row) const {
    const LabelsD* node = row.filled ? nullptr : canvas_.Labels.byIndex(row.place.node);
    bool any = !row.rows.empty();
    if (!node || row.link > 0) {
        return any;
    }
    const auto count = [&](const auto& list, NodeKindCode) { any = any || list.count() > 0; };
    if (row.place.isNode()) {
        eachOwnList(*node, count);
        any = any || (node->activity() && node->activity()->Act_Functions.count() > 0);
    } else if (row.place.list == KindFunction) {
        if (const FunctionProperties* function = functionAt(*node, row.place)) {
            eachList(*function, count);
        }
    } else {
        withMember(*node, row.place, [&](const auto& member) { any = linksOf(member) > 0; });
    }
    return any;
}

Rows Outline::makeRows(Row& parent) const {
    Rows rows;
    const LabelsD* node = canvas_.Labels.byIndex(parent.place.node);
    if (!node || parent.link > 0) {
        return rows;
    }
    const auto add = [&](const Place& place, int link) {
        rows.push_back(std::make_unique<Row>(Row{place, link, &parent, static_cast<int>(rows.size())}));
    };
    const auto addList = [&](const auto& list, NodeKindCode kind) {
        for (std::int32_t member = 1; member <= list.count(); ++member) {
            add({parent.place.node, kind, parent.place.function, member}, 0);
        }
    };
    if (parent.place.isNode()) {
        eachOwnList(*node, addList);
        const int functions = node->activity() ? node->activity()->Act_Functions.count() : 0;
        for (std::int32_t function = 1; function <= functions; ++function) {
            add({parent.place.node, KindFunction, function, 0}, 0);
        }
    } else if (parent.place.list == KindFunction) {
        if (const FunctionProperties* function = functionAt(*node, parent.place)) {
            eachList(*function, addList);
        }
    } else {
        withMember(*node, parent.place, [&](const auto& member) {
            for (int link = 1; link <= linksOf(member); ++link) {
                add(parent.place, link);
            }
        });
    }
    return rows;
}

Outline::Words Outline::wordsOf(const Row& row) const {
    Words words;
    const LabelsD* node = canvas_.Labels.byIndex(row.place.node);
    if (!node) {
        return words;
    }
    if (row.place.isNode()) {
        words.name = node->Caption();
        words.what = canvas::nodeKind(node->NodeType()).title;
        words.type = node->activity() ? tables_.activityTypes.shown(node->activity()->Act_Type) : std::string();
    } else if (row.place.list == KindFunction) {
        if (const FunctionProperties* function = functionAt(*node, row.place)) {
            words = {function->Function_Key, tables_.functionTypes.shown(function->Function_Type), "Function"};
        }
    } else {
        withMember(*node, row.place, [&](const auto& member) {
            if (const auto link = linkAt(member, row.link)) {
                words.name = wayOf(link->direction) + farWords(canvas_, member, *link);
            } else if (row.link == 0) {
                words = {links::nameOf(member), tables_.dataTypes.shown(links::typeOf(member)),
                         std::string(titleOfList(row.place.list))};
            }
        });
    }
    return words;
}

Outline::Row* Outline::targetOf(const Row& row) const {
    const LabelsD* node = canvas_.Labels.byIndex(row.place.node);
    Row* target = nullptr;
    if (!node || row.link == 0) {
        return target;
    }
    withMember(*node, row.place, [&](const auto& member) {
        const auto link = linkAt(member, row.link);
        if (!link) {
            return;
        }
        const links::FarEndView far =
            links::findFarEnd(canvas_, link->direction, links::NearEnd(member), link->data, nullptr);
        const std::string& owner = far.parameter && !far.parameter->ParentFunctionActivity.empty()
                                       ? far.parameter->ParentFunctionActivity
                                   : far.parameter ? far.parameter->ParentKeyName
                                   : far.attribute ? far.attribute->ParentKeyName
                                                   : link->data.name;
        const LabelsD* holder = canvas_.nodeNamed(owner);
        target = holder ? rootOf(holder->Index()) : nullptr;
        if (!target || (!far.attribute && !far.parameter)) {
            return;
        }
        const Place place = far.attribute ? placeOf(*holder, *far.attribute) : placeOf(*holder, *far.parameter);
        if (place.function > 0) {
            if (Row* function = rowAt(rowsOf(*target), {place.node, KindFunction, place.function, 0})) {
                target = function;
            }
        }
        if (Row* found = place.isNode() ? nullptr : rowAt(rowsOf(*target), place)) {
            target = found;
        }
    });
    return target;
}

void Outline::renew(Row& root) {
    if (listener_) {
        listener_->aboutToRemove(root);
    }
    root.rows.clear();
    root.filled = true;
    if (listener_) {
        listener_->removed();
    }
    Rows rows = makeRows(root);
    if (listener_) {
        listener_->aboutToInsert(root, static_cast<int>(rows.size()));
    }
    root.rows = std::move(rows);
    if (listener_) {
        listener_->inserted(root);
        listener_->altered(root);
    }
}

void Outline::follow(const canvas::Touched& touched) {
    std::vector<canvas::NodeNumber> nodes = touched.nodes;
    std::sort(nodes.begin(), nodes.end());
    nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
    const std::vector<canvas::NodeNumber> now = order();
    if (now != order_ || nodes.size() > kMostRenewed) {
        if (listener_) {
            listener_->aboutToReset();
        }
        build(now);
        if (listener_) {
            listener_->reset();
        }
        return;
    }
    for (const canvas::NodeNumber node : nodes) {
        if (Row* root = rootOf(node)) {
            renew(*root);
        }
    }
}

}  // namespace orvent::analysis
