#include "editors/tree_view_moving.h"

namespace orvent::editors {

using forms::Tree;

namespace {

/// The new row comes in at the selected one.
void addAt(RowOperations& dialog, Tree::Node& node, int position) {
    forms::List& list = dialog.listFor(node);
    const std::string key = dialog.rowKeyOf(node);
    if (!key.empty() && !list.Item(key)) {
        dialog.AddRow(node, position == -1 ? (list.selected() > 0 ? list.selected() : list.Count() + 1) : position);
    }
}

void addEach(RowOperations& dialog, Tree::Node& node, int position) {
    if (node.children().empty()) {
        return addAt(dialog, node, position);
    }
    dialog.moveMany([&] {
        for (const auto& child : node.children()) {
            if (!child->value().Checked) {
                addAt(dialog, *child, position);
                position = position > 0 ? position + 1 : position;
            }
        }
    });
}

}  // namespace

void AddNodeToList(RowOperations& dialog, Tree::Node& node) {
    addAt(dialog, node, -1);
}

void NodeCheck(RowOperations& dialog, Tree& tree, Tree::Node& node) {
    if (!node.parent()) {
        return;
    }
    if (!node.value().Checked) {
        addEach(dialog, node, -1);
    } else if (node.children().empty()) {
        dialog.RemoveRowByTree(node);
    } else {
        dialog.moveMany([&] {
            for (const auto& child : node.children()) {
                dialog.RemoveRowByTree(*child);
            }
        });
    }
    Tree::Node* parent = node.children().empty() ? node.parent() : &node;
    if (parent->parent()) {
        dialog.childrenMoved(tree, *parent);
    }
}

void DropNode(RowOperations& dialog, Tree::Node& node, int position) {
    if (node.parent()) {
        addEach(dialog, node, position);
    }
}

}  // namespace orvent::editors
