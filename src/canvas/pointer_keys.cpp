// The keyboard on a canvas.

#include "canvas/canvas_pointer.h"
#include "canvas/node_moves.h"
#include "canvas/node_walk.h"
#include "canvas/pointer_edges.h"

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

}  // namespace

bool CanvasPointer::keyDown(int keyCode, bool ctrl) {
    dropIfToolChanged();
    switch (keyCode) {
        case DeleteKey:
            return deleteSelected();
        case EscapeKey:
            return escape();
        case EnterKey:
            return enter();
        case MenuKey:
            return openSelectedMenu();
        default:
            return keyCode >= 'A' && keyCode <= 'Z' ? letter(static_cast<char>(keyCode)) : arrow(keyCode, ctrl);
    }
}

bool CanvasPointer::escape() {
    if (state() != PointerState::idle) {
        cancel();
    } else {
        ports_.tools.pressTool("Arrow");
    }
    return true;
}

bool CanvasPointer::arrow(int keyCode, bool ctrl) {
    for (const ArrowKey& row : kArrowKeys) {
        if (row.key != keyCode) {
            continue;
        }
        if (state() != PointerState::joining) {
            cancel();
        }
        LabelsD* node = ctrl ? selectedNode() : walk(canvas_, row.direction);
        if (ctrl) {
            moveNodes(canvas_, canvas_.SelectedLabels.members(), row.dx, row.dy);
        }
        if (node) {
            ports_.windows.reveal(canvas_, *node);
        }
        return true;
    }
    return false;
}

// While a button is held, another tool would take away what the hand is doing.
bool CanvasPointer::letter(char key) {
    return !captures_ && state() != PointerState::editing && ports_.tools.pressLetter(key);
}

LabelsD* CanvasPointer::selectedNode() const {
    const std::vector<std::int32_t> selected = canvas_.SelectedLabels.members();
    return selected.empty() ? nullptr : canvas_.Labels.byIndex(selected.back());
}

bool CanvasPointer::enter() {
    const std::string& tool = ports_.tools.DrawMode();
    if (captures_ || state() == PointerState::editing) {
        return false;
    }
    if (canvas_.rules().places(tool)) {
        return placeInView();
    }
    const auto edgeType = canvas_.rules().edgeTypeOf(tool);
    LabelsD* node = selectedNode();
    if (!edgeType) {
        return openSelected();
    }
    if (!node) {
        return false;
    }
    if (state() == PointerState::joining) {
        const std::unique_ptr<Gesture> joining = std::move(gesture_);
        static_cast<EdgeJoining&>(*joining).join(*node);
        return true;
    }
    cancel();
    if (canvas_.rules().mayStart(*edgeType, *node)) {
        begin<EdgeJoining>(ports_.tools, *node, *edgeType);
    } else {
        ports_.tools.hint("An edge of this kind cannot start here.");
    }
    return true;
}

bool CanvasPointer::placeInView() {
    cancel();
    const Point middle = canvas_.PicForm.middle();
    const std::int32_t former = canvas_.LabelsNo;
    LabelsD* opened =
        canvas_.rules().placeNode(canvas_, ports_.tools.DrawMode(), {SnapToGrid(middle.x), SnapToGrid(middle.y)});
    LabelsD* placed = canvas_.Labels.byIndex(canvas_.LabelsNo);
    if (!placed || canvas_.LabelsNo == former) {
        return true;
    }
    placed->setBox(freePlaceNear(canvas_, *placed, placed->box()));
    canvas_.ClearCrop();
    canvas_.SelectedLines.Clear();
    canvas_.SelectedLabels.Add(placed->Index());
    ports_.windows.reveal(canvas_, *placed);
    if (opened) {
        ports_.windows.openProperties(canvas_, *opened);
    }
    return true;
}

bool CanvasPointer::openSelected() {
    LabelsD* node = canvas_.SelectedLabels.Count() == 1 ? selectedNode() : nullptr;
    if (!node) {
        return false;
    }
    cancel();
    canvas_.ActiveLabel = node->Index();
    ports_.windows.openProperties(canvas_, *node);
    return true;
}

bool CanvasPointer::openSelectedMenu() {
    cancel();
    if (const LabelsD* node = selectedNode()) {
        canvas_.ActiveLabel = node->Index();
        showMenu(nodeKind(node->NodeType()).menu, {node->Left() + node->Width() / 2, node->Top() + node->Height() / 2});
        return true;
    }
    const std::vector<std::int32_t> edges = canvas_.SelectedLines.members();
    if (const LinesD* edge = edges.empty() ? nullptr : canvas_.Lines.byIndex(edges.back())) {
        canvas_.ActiveEdge = edge->Index();
        showMenu("EdgesM", {edge->Xm(), edge->Ym()});
        return true;
    }
    return false;
}

bool CanvasPointer::deleteSelected() {
    if (captures_ || state() == PointerState::editing) {
        return false;
    }
    cancel();
    DeleteSelectedNodes(canvas_, kEveryNodeType, ports_.links, canvas_.rules());
    DeleteSelectedEdges(canvas_, canvas_.rules());
    return true;
}

}  // namespace orvent::canvas
