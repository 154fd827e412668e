#include "zoom/make_room.h"

#include <algorithm>
#include <type_traits>
#include <unordered_map>
#include <vector>

#include "zoom/expansion.h"
#include "zoom/part_of.h"
#include "zoom/view_filters.h"

namespace orvent::zoom {

using canvas::Box;
using canvas::LabelsD;

namespace {

/// A neighbour with its members, or all that is neither: the central activity with what belongs to it.
template <class Node>
struct GroupOf {
    ZoomPlace place = ZoomPlace::Central;
    std::vector<Node*> nodes;

    template <class Edge>
    float least(Edge edge) const {
        float result = edge(nodes.front()->box());
        for (const LabelsD* node : nodes) {
            result = std::min(result, edge(node->box()));
        }
        return result;
    }
    float left() const {
        return least([](const Box& box) { return box.Left; });
    }
    float top() const {
        return least([](const Box& box) { return box.Top; });
    }
    float right() const {
        return -least([](const Box& box) { return -box.right(); });
    }
    float bottom() const {
        return -least([](const Box& box) { return -box.bottom(); });
    }
    void move(float dx, float dy) const {
        for (Node* node : nodes) {
            Box box = node->box();
            box.Left += dx;
            box.Top += dy;
            node->setBox(box);
        }
    }
};
using Group = GroupOf<LabelsD>;

ZoomPlace placeOf(const LabelsD& node) {
    return static_cast<ZoomPlace>(node.activity() ? node.activity()->ZoomPosition : node.recordSet()->ZoomPosition);
}

/// Whether a part-of edge from the owner ties what belongs to it.
bool belongsTo(const ZoomView& view, const LabelsD& node, const LabelsD& owner) {
    const auto* function = node.entity<entities::FunctionProperties>();
    return function ? function->ParentKeyName() == ownerNameOf(view, owner) : isMemberOf(view, node, owner);
}

/// The central group first, then the neighbours.
template <class Form>
auto groupsOf(Form& view) {
    using Node = std::remove_pointer_t<decltype(view.Labels.byIndex({}))>;
    std::vector<GroupOf<Node>> groups(1);
    std::unordered_map<canvas::NodeNumber, std::size_t> owner;
    std::vector<Node*> open;  // owners whose members are to be found
    for (const NewANDoldIndex& pair : view.New2OldIndex) {
        Node* node = view.Labels.byIndex(pair.NewIndex);
        if (node && placeOf(*node) != ZoomPlace::Central) {
            groups.push_back({placeOf(*node), {}});
            owner[node->Index()] = groups.size() - 1;
            open.push_back(node);
        }
    }
    while (!open.empty()) {
        Node* holder = open.back();
        open.pop_back();
        for (const canvas::EdgeNumber number : holder->StartingLines()) {
            const canvas::LinesD* edge = view.Lines.byIndex(number);
            Node* node =
                edge && edge->EdgeType() == canvas::EdgeTypePartOf ? view.Labels.byIndex(edge->ToLabel()) : nullptr;
            if (node && belongsTo(view, *node, *holder) &&
                owner.try_emplace(node->Index(), owner[holder->Index()]).second) {
                open.push_back(node);
            }
        }
    }
    for (auto& node : view.Labels) {
        if (!isTypeNode(node)) {
            const auto place = owner.find(node.Index());
            groups[place == owner.end() ? 0 : place->second].nodes.push_back(view.Labels.byIndex(node.Index()));
        }
    }
    return groups;
}

bool cross(const Box& a, const Box& b) {
    return a.Left < b.right() && b.Left < a.right() && a.Top < b.bottom() && b.Top < a.bottom();
}

/// Whether one node stands with its middle left of the other's.
bool isLeftOf(const Box& a, const Box& b) {
    return a.Left + a.right() < b.Left + b.right();
}

/// Whether a member of a column stands on the wrong side of one that it is joined with in another column.
bool standsOnWrongSide(const ZoomView& view) {
    std::unordered_map<canvas::NodeNumber, ZoomPlace> places;
    for (const auto& group : groupsOf(view)) {
        for (const LabelsD* node : group.nodes) {
            places[node->Index()] = group.place;
        }
    }
    for (const canvas::LinesD& edge : view.Lines) {
        const auto from = places.find(edge.FromLabel()), to = places.find(edge.ToLabel());
        const bool links = edge.EdgeType() == canvas::EdgeTypeProvider || edge.EdgeType() == canvas::EdgeTypeRegulator;
        if (!links || from == places.end() || to == places.end() || from->second == to->second) {
            continue;
        }
        const bool onwards = from->second < to->second;
        const Box left = view.Labels.byIndex(onwards ? from->first : to->first)->box();
        const Box right = view.Labels.byIndex(onwards ? to->first : from->first)->box();
        if (!isLeftOf(left, right)) {
            return true;
        }
    }
    return false;
}

/// Constants stand at the parameters that they regulate, which lie closer than constants are high.
void partConstants(ZoomView& view) {
    std::vector<LabelsD*> constants;
    for (LabelsD& node : view.Labels) {
        if (node.NodeType() == canvas::NodeTypeConstant) {
            constants.push_back(&node);
        }
    }
    std::ranges::stable_sort(constants, {}, [](const LabelsD* node) { return node->Top(); });
    for (std::size_t at = 1; at < constants.size(); ++at) {
        Box box = constants[at]->box();
        for (std::size_t above = 0; above < at; ++above) {
            if (cross(constants[above]->box(), box)) {
                box.Top = constants[above]->box().bottom();
            }
        }
        constants[at]->setBox(box);
    }
}

}  // namespace

// From the top down: a box is held against those that begin before it ends.
bool boxesOverlap(const ZoomView& view) {
    struct Placed {
        Box box;
        std::size_t group;
    };
    std::vector<Placed> all;
    const auto groups = groupsOf(view);
    for (std::size_t group = 0; group < groups.size(); ++group) {
        for (const LabelsD* node : groups[group].nodes) {
            all.push_back({node->box(), group});
        }
    }
    std::sort(all.begin(), all.end(), [](const Placed& a, const Placed& b) { return a.box.Top < b.box.Top; });
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t j = i + 1; j < all.size() && all[j].box.Top < all[i].box.bottom(); ++j) {
            if (all[i].group != all[j].group && cross(all[i].box, all[j].box)) {
                return true;
            }
        }
    }
    return false;
}

Disorder disorderOf(const ZoomView& view) {
    return boxesOverlap(view) ? Disorder::overlap : standsOnWrongSide(view) ? Disorder::wrongSide : Disorder::none;
}

void MakeRoom(ZoomView& view) {
    const canvas::ManyChanges many(view);
    std::vector<canvas::NodeNumber> named;
    for (const LabelsD& node : view.Labels) {
        if (!isTypeNode(node)) {
            named.push_back(node.Index());
        }
    }
    canvas::fitToNames(view, named, view.names());
    partConstants(view);
    const std::vector<Group> groups = groupsOf(view);
    const float gap = view.settings().HDist;
    const float betweenColumns = 4 * gap;  // an arrow is seen there
    const auto moveDown = [&](ZoomPlace place) {
        float free = 0;
        for (const Group& group : groups) {
            if (group.place == place && !group.nodes.empty()) {
                group.move(0, std::max(free - group.top(), 0.0F));
                free = group.bottom() + gap;
            }
        }
    };
    moveDown(ZoomPlace::Providers);
    moveDown(ZoomPlace::Consumers);
    const auto farthest = [&](ZoomPlace place) {
        float right = 0;
        for (const Group& group : groups) {
            right = group.place == place && !group.nodes.empty() ? std::max(right, group.right()) : right;
        }
        return right;
    };
    /// Moves all groups of the places so far to the right that none of them begins before `from`.
    const auto moveRight = [&](ZoomPlace first, float from) {
        float least = from;
        for (const Group& group : groups) {
            least = group.place == first && !group.nodes.empty() ? std::min(least, group.left()) : least;
        }
        for (const Group& group : groups) {
            if (group.place == first || group.place == ZoomPlace::Consumers) {
                group.move(from - least, 0);
            }
        }
    };
    if (const float end = farthest(ZoomPlace::Providers); end > 0) {
        moveRight(ZoomPlace::Central, end + betweenColumns);
    }
    moveRight(ZoomPlace::Consumers, farthest(ZoomPlace::Central) + betweenColumns);
    view.growPicture();
    view.setDisorder(Disorder::none);
}

}  // namespace orvent::zoom
