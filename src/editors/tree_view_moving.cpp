#include "editors/tree_view_moving.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace orvent::editors {

using forms::Tree;

namespace {

/// The new row comes in at the selected one.
void addAt(RowOperations& dialog, Tree::Node& node, int position) {
    if (!node.value().Refusal.empty()) {
        return;
    }
    forms::List& list = dialog.listFor(node);
    const std::string key = dialog.rowKeyOf(node);
    if (!key.empty() && !list.Item(key)) {
        dialog.AddRow(node, position == -1 ? (list.selected() > 0 ? list.selected() : list.Count() + 1) : position);
    }
}

template <class Act>
void eachLeaf(const Tree::Node& parent, const Act& act) {
    for (const auto& child : parent.children()) {
        if (child->isShown()) {
            act(*child);
        }
    }
}

void addEach(RowOperations& dialog, Tree::Node& node, int position) {
    if (node.children().empty()) {
        return addAt(dialog, node, position);
    }
    dialog.moveMany([&] {
        eachLeaf(node, [&](Tree::Node& leaf) {
            forms::List& list = dialog.listFor(leaf);
            const int before = list.Count();
            addAt(dialog, leaf, position);
            position += position > 0 ? list.Count() - before : 0;
        });
    });
}

void removeEach(RowOperations& dialog, Tree::Node& node) {
    if (node.children().empty()) {
        return dialog.RemoveRowByTree(node);
    }
    dialog.moveMany([&] { eachLeaf(node, [&](Tree::Node& leaf) { dialog.RemoveRowByTree(leaf); }); });
}

bool isUsed(const Tree::Node& node) {
    if (node.children().empty()) {
        return node.value().Checked;
    }
    bool all = true;
    eachLeaf(node, [&all](const Tree::Node& leaf) { all = all && leaf.value().Checked; });
    return all;
}

}  // namespace

void AddNodeToList(RowOperations& dialog, Tree::Node& node) {
    addAt(dialog, node, -1);
}

void NodeCheck(RowOperations& dialog, const std::vector<Tree::Node*>& nodes) {
    const std::unordered_set<const Tree::Node*> chosen(nodes.begin(), nodes.end());
    std::vector<Tree::Node*> meant;
    std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(meant), [&chosen](const Tree::Node* node) {
        const Tree::Node* parent = node->parent();
        return parent && node->value().Refusal.empty() && (!parent->parent() || !chosen.contains(parent));
    });
    const bool remove = std::all_of(meant.begin(), meant.end(), [](const Tree::Node* node) { return isUsed(*node); });
    const auto click = [&] {
        for (Tree::Node* node : meant) {
            if (remove) {
                removeEach(dialog, *node);
            } else if (!isUsed(*node)) {
                addEach(dialog, *node, -1);
            }
        }
    };
    meant.size() > 1 ? dialog.moveMany(click) : click();
}

void DropNode(RowOperations& dialog, Tree::Node& node, int position) {
    if (node.parent()) {
        addEach(dialog, node, position);
    }
}

void DropNodes(RowOperations& dialog, const std::vector<Tree::Node*>& nodes, forms::List& onto, int position) {
    if (position > 0 && !nodes.empty()) {
        onto.select(position);
    }
    dialog.moveMany([&] {
        for (Tree::Node* node : nodes) {
            const bool there = &dialog.listFor(*node) == &onto;
            const int before = onto.Count();
            DropNode(dialog, *node, there ? position : 0);
            position = there && position > 0 ? position + onto.Count() - before : position;
        }
    });
}

namespace {

struct Step {
    int row;
    int to;
};

/// Does steps that do not disturb one another, and selects what was moved.
void moveAll(forms::List& list, const std::vector<Step>& steps, const MoveRow& move) {
    const forms::List::Gathering gathering(list);
    std::vector<int> moved;
    const int current = list.selected();
    int currentTo = 0;
    for (const Step& step : steps) {
        if (step.row != step.to) {
            move(step.row, step.to);
        }
        moved.push_back(step.to);
        currentTo = step.row == current ? step.to : currentTo;
    }
    list.select(moved, currentTo != 0 || moved.empty() ? currentTo : moved.front());
}

}  // namespace

void moveSelected(forms::List& list, forms::RowMove where, const MoveRow& move) {
    using enum forms::RowMove;
    const std::vector<int> rows = list.selection();
    const int count = static_cast<int>(rows.size());
    std::vector<Step> steps;
    for (int at = 0; at < count; ++at) {
        const int row = rows[static_cast<std::size_t>(at)];
        const int first = at + 1, last = list.Count() - (count - 1 - at);
        const int to = where == top ? first : where == bottom ? last : where == up ? row - 1 : row + 1;
        steps.push_back({row, std::clamp(to, first, last)});
    }
    if (where == down || where == bottom) {
        std::reverse(steps.begin(), steps.end());
    }
    moveAll(list, steps, move);
}

void moveRowsTo(forms::List& list, std::vector<int> rows, int place, const MoveRow& move) {
    std::sort(rows.begin(), rows.end());
    const int before = place > 0 ? place : list.Count() + 1;
    const auto above = std::lower_bound(rows.begin(), rows.end(), before);
    std::vector<Step> steps;
    for (auto row = above; row != rows.begin();) {
        --row;
        steps.push_back({*row, before - static_cast<int>(above - row)});
    }
    for (auto row = above; row != rows.end(); ++row) {
        steps.push_back({*row, before + static_cast<int>(row - above)});
    }
    moveAll(list, steps, move);
}

void removeSelected(forms::List& list, const std::function<bool(const forms::ListRow&)>& mayGo,
                    const std::function<void(int)>& remove) {
    const std::vector<int> rows = list.selection();
    int gone = 0;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        if (mayGo(*list.Item(*row))) {
            remove(*row);
            gone = *row;
        }
    }
    if (gone > 0 && list.selection().empty()) {
        list.select(std::min(gone, list.Count()));
    }
}

}  // namespace orvent::editors
