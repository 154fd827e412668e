#include "canvas/selection_keys.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "canvas/node_moves.h"
#include "canvas/node_walk.h"

namespace orvent::canvas {

namespace {

constexpr float kKeyStep = 100;  // twips that a key moves the selected nodes

struct ArrowKey {
    int key;
    Direction direction;
    float dx, dy;
};

constexpr ArrowKey kArrowKeys[] = {{LeftKey, Direction::left, -kKeyStep, 0},
                                   {RightKey, Direction::right, kKeyStep, 0},
                                   {UpKey, Direction::up, 0, -kKeyStep},
                                   {DownKey, Direction::down, 0, kKeyStep}};

const ArrowKey* rowOf(int keyCode) {
    const auto* row = std::find_if(std::begin(kArrowKeys), std::end(kArrowKeys),
                                   [keyCode](const ArrowKey& each) { return each.key == keyCode; });
    return row == std::end(kArrowKeys) ? nullptr : row;
}

}  // namespace

bool SelectionKeys::isArrow(int keyCode) {
    return rowOf(keyCode) != nullptr;
}

LabelsD* SelectionKeys::selectedNode() const {
    const std::vector<NodeNumber> selected = canvas_.SelectedLabels.members();
    return selected.empty() ? nullptr : canvas_.Labels.byIndex(selected.back());
}

void SelectionKeys::arrow(int keyCode, bool ctrl) {
    const ArrowKey& row = *rowOf(keyCode);
    LabelsD* node = ctrl ? selectedNode() : walk(canvas_, row.direction);
    if (ctrl) {
        moveNodes(canvas_, canvas_.SelectedLabels.members(), row.dx, row.dy);
    }
    if (node) {
        ports_.windows.reveal(canvas_, *node);
    }
}

void SelectionKeys::placeNear(Point middle) {
    const NodeNumber former = canvas_.LabelsNo;
    LabelsD* opened =
        canvas_.rules().placeNode(canvas_, ports_.tools.DrawMode(), {SnapToGrid(middle.x), SnapToGrid(middle.y)});
    LabelsD* placed = canvas_.Labels.byIndex(canvas_.LabelsNo);
    if (!placed || canvas_.LabelsNo == former) {
        return;
    }
    placed->setBox(freePlaceNear(canvas_, *placed, placed->box()));
    canvas_.ClearCrop();
    canvas_.SelectedLines.Clear();
    canvas_.SelectedLabels.Add(placed->Index());
    ports_.windows.reveal(canvas_, *placed);
    if (opened) {
        ports_.windows.openProperties(canvas_, *opened);
    }
}

bool SelectionKeys::openSelected() {
    LabelsD* node = onlySelected();
    if (node) {
        canvas_.ActiveLabel = node->Index();
        ports_.windows.openProperties(canvas_, *node);
    }
    return node != nullptr;
}

void SelectionKeys::deleteSelected() {
    DeleteSelectedNodes(canvas_, kEveryNodeType, ports_.links, canvas_.rules());
    DeleteSelectedEdges(canvas_, canvas_.rules());
}

}  // namespace orvent::canvas
