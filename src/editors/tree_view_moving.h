#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/list.h"
#include "forms/tree.h"

namespace orvent::editors {

/// The row operations of an entity dialog, which moves things between trees and lists.
class RowOperations {
  public:
    virtual ~RowOperations() = default;

    /// Brings forward the list that receives such a node, and gives the list in front.
    virtual forms::List& listFor(const forms::Tree::Node& node) = 0;
    /// The key of the row that the node makes in the list in front, empty when it makes none there.
    virtual std::string rowKeyOf(const forms::Tree::Node& node) const = 0;
    /// Makes the row and what stands behind it.
    virtual void AddRow(forms::Tree::Node& node, int position) = 0;
    /// Takes away what uses the node.
    virtual void RemoveRowByTree(forms::Tree::Node& node) = 0;
    /// Does moves of several nodes or rows, which are shown when all are done: they ask nothing.
    virtual void moveMany(const std::function<void()>& moves) = 0;
};

// What a click on nodes of a tree and a drop of them on a list do; the two entity dialogs share it. A parent stands for
// those of its children that its tree shows.

/// A click: all nodes are used afterwards, or none when all were. A child of another one goes with it. A root changes
/// nothing.
void NodeCheck(RowOperations& dialog, const std::vector<forms::Tree::Node*>& nodes);

/// Puts the node into the list that receives it, at the place of the selected row. A row of its key is there already:
/// nothing happens.
void AddNodeToList(RowOperations& dialog, forms::Tree::Node& node);

/// A drop on the list before the row at `position`, 0 for behind the last. It only adds: what is in the list stays.
void DropNode(RowOperations& dialog, forms::Tree::Node& node, int position);
/// Several nodes on the list `onto`, one behind the other. The row under the pointer is selected; a node that another
/// list receives goes behind the last row there.
void DropNodes(RowOperations& dialog, const std::vector<forms::Tree::Node*>& nodes, forms::List& onto, int position);

// What is done to all selected rows of a list. The selection goes with the rows.

/// Brings a row to another place, with what stands behind it.
using MoveRow = std::function<void(int row, int to)>;

/// A list button: rows that are together stay together, and stop at the ends.
void moveSelected(forms::List& list, forms::RowMove where, const MoveRow& move);
/// The rows go before the row at `place`, 0 for behind the last.
void moveRowsTo(forms::List& list, std::vector<int> rows, int place, const MoveRow& move);
/// Takes the selected rows away for which `mayGo` is true, and selects the row that comes up in their place.
void removeSelected(forms::List& list, const std::function<bool(const forms::ListRow& row)>& mayGo,
                    const std::function<void(int row)>& remove);

}  // namespace orvent::editors
