// Which gesture a key begins, goes on with or ends.

#include "canvas/canvas_pointer.h"
#include "canvas/pointer_edges.h"

namespace orvent::canvas {

bool CanvasPointer::keyDown(int keyCode, bool ctrl) {
    dropIfToolChanged();
    switch (keyCode) {
        case DeleteKey:
            return deleteSelected();
        case EscapeKey:
            return escape();
        case EnterKey:
            return enter();
        case RenameKey:
            return beginNaming();
        case MenuKey:
            cancel();
            return menus_.openSelected();
        default:
            break;
    }
    if (keyCode < 'A' || keyCode > 'Z') {
        return arrow(keyCode, ctrl);
    }
    // While a button is held, another tool would take away what the hand is doing.
    return !captures_ && state() != PointerState::editing && ports_.tools.pressLetter(static_cast<char>(keyCode));
}

bool CanvasPointer::escape() {
    const bool idle = state() == PointerState::idle;
    cancel();
    if (idle) {
        ports_.tools.pressTool("Arrow");
    }
    return true;
}

bool CanvasPointer::arrow(int keyCode, bool ctrl) {
    if (!SelectionKeys::isArrow(keyCode)) {
        return false;
    }
    if (state() != PointerState::joining) {
        cancel();
    }
    keys_.arrow(keyCode, ctrl);
    return true;
}

bool CanvasPointer::enter() {
    const std::string& tool = ports_.tools.DrawMode();
    if (captures_ || state() == PointerState::editing) {
        return false;
    }
    if (canvas_.rules().places(tool)) {
        cancel();
        keys_.placeNear(view_.window.middle());
        return true;
    }
    const auto edgeType = canvas_.rules().edgeTypeOf(tool);
    if (!edgeType) {
        if (keys_.onlySelected()) {
            cancel();
        }
        return keys_.openSelected();
    }
    return keys_.selectedNode() && joinFrom(*keys_.selectedNode(), *edgeType);
}

bool CanvasPointer::joinFrom(const LabelsD& node, EdgeTypeCode edgeType) {
    if (state() == PointerState::joining) {
        const std::unique_ptr<Gesture> joining = std::move(gesture_);
        static_cast<EdgeJoining&>(*joining).join(node);
        return true;
    }
    cancel();
    if (canvas_.rules().mayStart(edgeType, node)) {
        begin<EdgeJoining>(ports_.tools, node, edgeType);
    } else {
        ports_.tools.hint("An edge of this kind cannot start here.");
    }
    return true;
}

bool CanvasPointer::deleteSelected() {
    if (captures_ || state() == PointerState::editing) {
        return false;
    }
    cancel();
    keys_.deleteSelected();
    return true;
}

}  // namespace orvent::canvas
