#include "history/remembered.h"

#include <algorithm>
#include <unordered_set>

#include "history/row_identifiers.h"

namespace orvent::history {

namespace {

constexpr std::size_t kHeld = 64;  // bytes beside the text of a node's own

std::string withoutRows(const NodeBytes& bytes, TextPool& texts) {
    canvas::NodeState node = nodeOf(bytes, texts);
    eachIdentifier(node.kind, node.entity,
                   [](entities::NodeKindCode, const std::string&, std::int16_t& id) { id = 0; });
    std::string entity;
    writeEntity(entity, node.entity, texts);
    return entity;
}

canvas::NodeProperties shareOf(canvas::NodeProperties& entity) {
    return std::visit([](auto& held) { return canvas::NodeProperties(held); }, entity);
}

template <class Item, class Number>
const Item& grown(SharedList<Item>& items, Number index) {
    const auto at = static_cast<std::size_t>(index);
    items.growTo(at + 1);
    return items[at];
}

template <class Item>
void inOrder(std::vector<Item>& items) {
    std::ranges::sort(items, {}, &Item::index);
}

}  // namespace

std::size_t Difference::bytes() const {
    std::size_t sum = nodes.size() * sizeof(Node) + edges.size() * sizeof(Edge);
    const auto add = [&sum](const std::shared_ptr<const std::string>& bytes) { sum += bytes->size() + kHeld; };
    for (const Node& node : nodes) {
        const NodeBytes& held = node.after ? node.after : node.before;
        add(held.head);
        if (!node.isHeadAlone()) {
            add(held.entity);
        }
    }
    return sum;
}

bool Difference::isReadinessAlone() const {
    return edges.empty() && std::ranges::all_of(nodes, [](const Node& node) {
               return node.isHeadAlone() && sameButReady(*node.before.head, *node.after.head);
           });
}

void Difference::goOn(const Difference& further) {
    for (const Node& node : further.nodes) {
        const auto known = std::ranges::find(nodes, node.index, &Node::index);
        if (known != nodes.end()) {
            known->after = node.after;
        } else {
            nodes.push_back(node);
        }
    }
    inOrder(nodes);
}

const NodeBytes& Remembered::nodeAt(canvas::NodeNumber index) {
    return grown(nodes_, index);
}

const canvas::EdgeState& Remembered::edgeAt(canvas::EdgeNumber index) {
    return grown(edges_, index);
}

NodeBytes Remembered::storedAt(canvas::NodeNumber index) const {
    const auto at = static_cast<std::size_t>(index);
    return at < stored_.size() ? stored_[at] : NodeBytes();
}

bool Remembered::sameButRows(const NodeBytes& one, const NodeBytes& other) {
    return one.head == other.head && withoutRows(one, texts_) == withoutRows(other, texts_);
}

/// One look at a window. What is linked with a changed node is looked at, too: what an edit changes elsewhere it
/// changes along links, as they were or as they are.
class Remembered::Look {
  public:
    Look(Remembered& known, const canvas::DrawForm& form) : known_(known), form_(form) {}

    void edge(canvas::EdgeNumber index) {
        const canvas::EdgeState& known = known_.edgeAt(index);
        const canvas::EdgeState now = canvas::stateOf(form_.Lines.byIndex(index));
        if (now == known) {
            return;
        }
        if (now.from != known.from || now.to != known.to) {
            for (const canvas::NodeNumber end : {known.from, known.to, now.from, now.to}) {
                if (canvas::isGiven(end)) {
                    meet(end);
                }
            }
        }
        known_.changed_.edge(index);
        difference_.edges.push_back({index, known, now});
        known_.edges_.edit(static_cast<std::size_t>(index)) = now;
    }

    /// With `headAlone` it stands for what it stood for.
    void node(canvas::NodeNumber index, bool headAlone = false) {
        const NodeBytes& known = known_.nodeAt(index);
        const canvas::LabelsD* shown = form_.Labels.byIndex(index);
        if (!shown) {
            if (known) {
                change(index, {}, nullptr);
            }
            return;
        }
        const NodeBytes stored = known_.storedAt(index);
        head_.clear();
        writeHead(head_, canvas::stateOf(form_, *shown), known_.texts_);
        NodeBytes now;
        now.head = held(head_, known.head, stored.head);
        if (known && headAlone) {
            now.entity = known.entity;
        } else {
            entity_.clear();
            writeEntity(entity_, shown->Properties, known_.texts_);
            now.entity = held(entity_, known.entity, stored.entity);
        }
        if (now != known &&
            !(dialogOpen && known && now.entity == known.entity && sameButReady(*now.head, *known.head))) {
            change(index, std::move(now), &shown->Properties);
        }
    }

    /// Looks at what was met and not looked at yet.
    void follow() {
        while (!waiting_.empty()) {
            const canvas::NodeNumber index = waiting_.back();
            waiting_.pop_back();
            node(index);
        }
    }

    void meet(canvas::NodeNumber index) {
        if (follows && met_.insert(index).second) {
            waiting_.push_back(index);
        }
    }
    bool hasMet(canvas::NodeNumber index) const { return met_.contains(index); }

    Difference difference() {
        inOrder(difference_.nodes);
        inOrder(difference_.edges);
        return std::move(difference_);
    }

    bool follows = true;  ///< false while all nodes are looked at anyhow
    bool dialogOpen = false;

  private:
    /// One copy of what is alike.
    static std::shared_ptr<const std::string> held(const std::string& now,
                                                   const std::shared_ptr<const std::string>& known,
                                                   const std::shared_ptr<const std::string>& stored) {
        return known && *known == now     ? known
               : stored && *stored == now ? stored
                                          : std::make_shared<const std::string>(now);
    }

    void change(canvas::NodeNumber index, NodeBytes now, const canvas::NodeProperties* entity) {
        const NodeBytes before = std::exchange(known_.nodes_.edit(static_cast<std::size_t>(index)), now);
        const Difference::Node step{index, before, std::move(now)};
        step.isHeadAlone() ? known_.changed_.head(index) : known_.changed_.node(index);
        if (before && step.after && !step.isHeadAlone() && known_.sameButRows(before, step.after)) {
            return;
        }
        if (follows && !step.isHeadAlone()) {
            meetLinked(before, entity);
        }
        difference_.nodes.push_back(step);
    }

    void meetLinked(const NodeBytes& before, const canvas::NodeProperties* entity) {
        const auto meetNamed = [this](const std::string& name) {
            if (const canvas::NodeNumber other = form_.NamesColl.Item(name); other != canvas::kNoNode) {
                meet(other);
            }
        };
        if (before) {
            eachLinkedName(entityOf(*before.entity, {}, known_.texts_), meetNamed);
        }
        if (entity) {
            eachLinkedName(*entity, meetNamed);
        }
    }

    Remembered& known_;
    const canvas::DrawForm& form_;
    Difference difference_;
    std::vector<canvas::NodeNumber> waiting_;
    std::unordered_set<canvas::NodeNumber> met_;
    std::string head_, entity_;  // of the node that is looked at
};

void Remembered::stored() {
    stored_ = nodes_;
    storedEdges_ = edges_;
}

void Remembered::nothingStored() {
    stored_.clear();
    storedEdges_.clear();
}

bool Remembered::isStored() const {
    // What is alike is one copy.
    const auto any = [](std::size_t) { return true; };
    return !nodes_.eachOther(stored_, any) && !edges_.eachOther(storedEdges_, any);
}

void Remembered::take(const canvas::DrawForm& form) {
    nodes_.clear();
    edges_.clear();
    updateAll(form);
}

Difference Remembered::update(const canvas::DrawForm& form, const canvas::Touched& touched, bool dialogOpen) {
    Look look(*this, form);
    look.dialogOpen = dialogOpen;
    for (const canvas::NodeNumber index : touched.nodes) {
        look.meet(index);
    }
    std::vector<canvas::EdgeNumber> edges = touched.edges;
    std::ranges::sort(edges);
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    for (const canvas::EdgeNumber index : edges) {
        look.edge(index);
    }
    look.follow();
    for (const canvas::NodeNumber index : touched.heads) {
        if (!look.hasMet(index)) {
            look.node(index, true);
        }
    }
    return look.difference();
}

Difference Remembered::updateAll(const canvas::DrawForm& form) {
    Look look(*this, form);
    look.follows = false;
    const std::size_t all = std::max(nodes_.size(), static_cast<std::size_t>(form.LabelsNo) + 1);
    const std::size_t lines = std::max(edges_.size(), static_cast<std::size_t>(form.LinesNo) + 1);
    grown(nodes_, all - 1);
    grown(edges_, lines - 1);
    for (std::size_t index = 1; index < all; ++index) {
        look.node(static_cast<canvas::NodeNumber>(index));
    }
    for (std::size_t index = 1; index < lines; ++index) {
        look.edge(static_cast<canvas::EdgeNumber>(index));
    }
    return look.difference();
}

void Remembered::bring(canvas::DrawForm& form, const Difference& difference, bool back) {
    canvas::CanvasChange change;
    canvas::Touched touched;
    for (const Difference::Node& step : difference.nodes) {
        const NodeBytes& wanted = back ? step.before : step.after;
        if (!wanted) {
            change.goingNodes.push_back(step.index);
            touched.nodes.push_back(step.index);
            continue;
        }
        canvas::NodeState state = headOf(*wanted.head, texts_);
        canvas::LabelsD* shown = form.Labels.byIndex(step.index);
        if (const NodeBytes& now = nodeAt(step.index);
            shown && now && (step.isHeadAlone() || *now.entity == *wanted.entity)) {
            state.entity = shareOf(shown->Properties);
            touched.heads.push_back(step.index);
        } else {
            state.entity = entityOf(*wanted.entity, step.index, texts_);
            const NodeBytes stored = storedAt(step.index);
            StoredRows(stored ? nodeOf(stored, texts_) : canvas::NodeState()).giveTo(state);
            touched.nodes.push_back(step.index);
        }
        change.nodes.push_back(std::move(state));
    }
    for (const Difference::Edge& step : difference.edges) {
        change.edges.push_back({step.index, back ? step.before : step.after});
        touched.edges.push_back(step.index);
    }
    canvas::restore(form, std::move(change));
    update(form, touched);
}

std::vector<canvas::DeletedNode> Remembered::rowsToDelete() const {
    std::vector<canvas::DeletedNode> rows;
    stored_.eachOther(nodes_, [&](std::size_t index) {
        const NodeBytes now = index < nodes_.size() ? nodes_[index] : NodeBytes();
        const NodeBytes stored = storedAt(static_cast<canvas::NodeNumber>(index));
        if (stored && now.entity != stored.entity) {
            const StoredRows known(nodeOf(stored, texts_));
            const canvas::NodeState state = now ? nodeOf(now, texts_) : canvas::NodeState();
            const auto lacking = known.lackingIn(now ? &state : nullptr);
            rows.insert(rows.end(), lacking.begin(), lacking.end());
        }
        return false;
    });
    return rows;
}

}  // namespace orvent::history
