#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "canvas/canvas_state.h"
#include "canvas/draw_form.h"
#include "history/node_bytes.h"
#include "history/shared_list.h"

namespace orvent::history {

/// What lies between two states of a scenario, in order of `Index`.
struct Difference {
    struct Node {
        canvas::NodeNumber index;
        NodeBytes before, after;  ///< nothing where the node does not exist

        /// Whether it stands for what it stood for: both sides have one copy of that.
        bool isHeadAlone() const { return before && after && before.entity == after.entity; }
    };
    struct Edge {
        canvas::EdgeNumber index;
        canvas::EdgeState before, after;
    };
    std::vector<Node> nodes;
    std::vector<Edge> edges;

    bool empty() const { return nodes.empty() && edges.empty(); }
    /// Whether nothing but the readiness of nodes has changed.
    bool isReadinessAlone() const;
    /// Adds what lies between the second state and a third one.
    void goOn(const Difference& further);
    /// About how many bytes of memory it takes that nothing else holds.
    std::size_t bytes() const;
};

/// A scenario as it was when it was looked at last: the nodes and edges of its window by their `Index`.
class Remembered {
  public:
    /// Looks at all of the window.
    void take(const canvas::DrawForm& form);

    /// Looks again at what was touched, and at what is linked with a node that has changed. Gives what has; a node of
    /// which nothing but the identifiers of rows is another one is remembered and not told.
    /// With `dialogOpen` a node of which nothing but the readiness differs is left as it was: a dialog takes that away
    /// while it is open.
    Difference update(const canvas::DrawForm& form, const canvas::Touched& touched, bool dialogOpen = false);
    /// The same for all of the window.
    Difference updateAll(const canvas::DrawForm& form);

    /// What the window shows is what is stored from now on.
    void stored();
    /// Nothing that is stored belongs to the window.
    void nothingStored();
    /// Whether what is remembered is what is stored.
    bool isStored() const;

    /// What was found to be another one since this was asked last, identifiers of rows and readiness included.
    canvas::Touched takeChanged() { return std::exchange(changed_, {}); }

    /// Brings nodes and edges of the window, which is remembered as it is, to one side of a difference.
    void bring(canvas::DrawForm& form, const Difference& difference, bool back);

    /// The rows that are stored and that the remembered state lacks, in the order of nodes.
    std::vector<canvas::DeletedNode> rowsToDelete() const;

    const TextPool& texts() const { return texts_; }
    const SharedList<NodeBytes>& nodes() const { return nodes_; }          ///< by `Index`; nothing where there is none
    const SharedList<canvas::EdgeState>& edges() const { return edges_; }  ///< likewise
    /// The node of some bytes of this scenario, without what it stands for.
    canvas::NodeState head(const NodeBytes& bytes) const { return headOf(*bytes.head, texts_); }

  private:
    class Look;

    const NodeBytes& nodeAt(canvas::NodeNumber index);
    const canvas::EdgeState& edgeAt(canvas::EdgeNumber index);
    NodeBytes storedAt(canvas::NodeNumber index) const;
    bool sameButRows(const NodeBytes& one, const NodeBytes& other);

    TextPool texts_;
    SharedList<NodeBytes> nodes_, stored_;
    SharedList<canvas::EdgeState> edges_, storedEdges_;
    canvas::Touched changed_;
};

}  // namespace orvent::history
