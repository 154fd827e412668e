#include "zoom/make_room.h"

#include <algorithm>
#include <type_traits>
#include <unordered_map>
#include <vector>

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

/// The central group first, then the neighbours.
template <class Form>
auto groupsOf(Form& form) {
    using Node = std::remove_pointer_t<decltype(form.Labels.byIndex(0))>;
    std::vector<GroupOf<Node>> groups(1);
    std::unordered_map<std::int32_t, std::size_t> owner;
    for (const NewANDoldIndex& pair : form.New2OldIndex) {
        Node* node = form.Labels.byIndex(pair.NewIndex);
        if (!node || placeOf(*node) == ZoomPlace::Central) {
            continue;
        }
        groups.push_back({placeOf(*node), {}});
        owner[node->Index()] = groups.size() - 1;
        for (const std::int32_t number : node->StartingLines()) {
            const canvas::LinesD* edge = form.Lines.byIndex(number);
            if (edge && edge->EdgeType() == canvas::EdgeTypePartOf) {
                owner[edge->ToLabel()] = groups.size() - 1;
            }
        }
    }
    for (const NewANDoldIndex& pair : form.New2OldIndex) {
        owner.try_emplace(pair.NewIndex, 0);
    }
    for (auto& node : form.Labels) {
        if (!isTypeNode(node)) {
            const auto place = owner.find(node.Index());
            groups[place == owner.end() ? 0 : place->second].nodes.push_back(form.Labels.byIndex(node.Index()));
        }
    }
    return groups;
}

bool cross(const Box& a, const Box& b) {
    return a.Left < b.right() && b.Left < a.right() && a.Top < b.bottom() && b.Top < a.bottom();
}

}  // namespace

// From the top down: a box is held against those that begin before it ends.
bool boxesOverlap(const ZoomForm& form) {
    struct Placed {
        Box box;
        std::size_t group;
    };
    std::vector<Placed> all;
    const auto groups = groupsOf(form);
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

void MakeRoom(ZoomForm& form) {
    const canvas::ManyChanges many(form);
    const std::vector<Group> groups = groupsOf(form);
    const float gap = form.settings().HDist;
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
        moveRight(ZoomPlace::Central, end + gap);
    }
    moveRight(ZoomPlace::Consumers, farthest(ZoomPlace::Central) + gap);
    form.growPicture();
    form.setCrowded(false);
}

}  // namespace orvent::zoom
