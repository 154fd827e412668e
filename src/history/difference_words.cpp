// What a step of the history is called.

#include "history/scenario_history.h"

namespace orvent::history {

namespace {

/// What has become of the nodes or edges of a difference.
template <class Item>
struct Sides {
    std::vector<const Item*> came, went, changed;
};

template <class Item, class Exists>
Sides<Item> sidesOf(const std::vector<Item>& items, Exists exists) {
    Sides<Item> sides;
    for (const Item& item : items) {
        const bool before = exists(item.before), after = exists(item.after);
        (!before ? sides.came : !after ? sides.went : sides.changed).push_back(&item);
    }
    return sides;
}

std::string counted(std::size_t count, const char* one) {
    return count == 1 ? std::string(one == std::string("edge") ? "an " : "a ") + one
                      : std::to_string(count) + " " + one + "s";
}

class Words {
  public:
    Words(const Remembered& remembered, const std::string& verb) : remembered_(remembered), verb_(verb) {}

    std::string of(const Difference& difference) const {
        const auto nodes = sidesOf(difference.nodes, [](const NodeBytes& bytes) { return static_cast<bool>(bytes); });
        const auto edges = sidesOf(difference.edges, [](const canvas::EdgeState& edge) { return edge.exists(); });
        if (!nodes.went.empty()) {
            return "Deleted " + named(nodes.went, true);
        }
        if (!nodes.came.empty()) {
            return verb_ + named(nodes.came, false);
        }
        // The ends of an edge only have it in their lists.
        std::vector<const Difference::Node*> own;
        for (const Difference::Node* node : nodes.changed) {
            if (!sameButEdges(*node)) {
                own.push_back(node);
            }
        }
        if (own.empty() || (edges.changed.empty() && onlyLinks(own))) {
            if (!edges.went.empty() && edges.came.empty()) {
                return "Deleted " + counted(edges.went.size(), "edge");
            }
            if (!edges.came.empty() && edges.went.empty()) {
                return "Drew " + counted(edges.came.size(), "edge");
            }
        }
        if (own.empty()) {
            return "Changed " + counted(difference.edges.size(), "edge");
        }
        return changed(own);
    }

  private:
    std::string caption(const NodeBytes& bytes) const { return remembered_.head(bytes).caption; }

    std::string named(const std::vector<const Difference::Node*>& nodes, bool before) const {
        return nodes.size() == 1 ? caption(before ? nodes.front()->before : nodes.front()->after)
                                 : std::to_string(nodes.size()) + " nodes";
    }

    bool sameButEdges(const Difference::Node& node) const {
        if (!node.isHeadAlone()) {
            return false;
        }
        const canvas::NodeState before = remembered_.head(node.before), after = remembered_.head(node.after);
        return before.box == after.box && before.caption == after.caption && before.readiness == after.readiness;
    }

    /// Nothing but links has changed, as by drawing or deleting an edge.
    bool onlyLinks(const std::vector<const Difference::Node*>& nodes) const {
        for (const Difference::Node* node : nodes) {
            const canvas::NodeState before = remembered_.head(node->before), after = remembered_.head(node->after);
            if (!(before.box == after.box) || before.caption != after.caption) {
                return false;
            }
        }
        return true;
    }

    std::string changed(const std::vector<const Difference::Node*>& nodes) const {
        bool places = true, sizes = false;
        for (const Difference::Node* node : nodes) {
            const canvas::NodeState before = remembered_.head(node->before), after = remembered_.head(node->after);
            places = places && !(before.box == after.box) && before.caption == after.caption && node->isHeadAlone();
            sizes = sizes || before.box.Width != after.box.Width || before.box.Height != after.box.Height;
            if (before.caption != after.caption && before.kind != canvas::NodeTypeComment) {
                return "Renamed " + before.caption + " to " + after.caption;
            }
        }
        const char* verb = !places ? "Changed " : sizes ? "Resized " : "Moved ";
        return verb + named(nodes, false);
    }

    const Remembered& remembered_;
    const std::string& verb_;
};

}  // namespace

std::string wordsOf(const Difference& difference, const Remembered& remembered, const std::string& verb) {
    return Words(remembered, verb).of(difference);
}

}  // namespace orvent::history
