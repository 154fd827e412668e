// Which gesture an event begins, goes on with or ends.

#include "canvas/canvas_pointer.h"

namespace orvent::canvas {

CanvasPointer::CanvasPointer(CanvasForm& form, const PointerPorts& ports)
    : canvas_(form), ports_(ports), subscription_(form.listen(*this)) {}

CanvasPointer::~CanvasPointer() {
    cancel();
}

/// What a press or a move is meant for. With an edge tool a node is pressed to draw from it, so a handle above it
/// counts only while its edge is selected.
Hit CanvasPointer::meant(const Hit& hit) const {
    const LinesD* edge = edgeAt(hit);
    const bool drawing = canvas_.rules().edgeTypeOf(ports_.tools.DrawMode()).has_value();
    return edge && drawing && hit.below != 0 && !edge->Selected() ? Hit{Element::node, hit.below} : hit;
}

LabelsD* CanvasPointer::nodeAt(const Hit& hit) const {
    return hit.element == Element::node ? canvas_.Labels.byIndex(hit.number) : nullptr;
}

LinesD* CanvasPointer::edgeAt(const Hit& hit) const {
    return hit.element == Element::handle ? canvas_.Lines.byIndex(edgeOfHandle(hit.number)) : nullptr;
}

void CanvasPointer::begin(PointerState state) {
    state_ = state;
    tool_ = ports_.tools.DrawMode();
}

void CanvasPointer::end() {
    state_ = PointerState::idle;
    canvas_.DragOutline.Visible = false;
    canvas_.ResizeLabel.Visible = false;
    canvas_.CroppingRect.Visible = false;
    formerSelection_.clear();
    canvas_.tellMarkers();
}

void CanvasPointer::cancel() {
    captures_ = false;
    switch (state_) {
        case PointerState::idle:
            return;
        case PointerState::drawing:
        case PointerState::pending:
            canvas_.Lines.Remove(takeDrawnEdge());
            break;
        case PointerState::cropping:
            canvas_.SelectedLabels.Clear();
            for (const std::int32_t index : formerSelection_) {
                canvas_.SelectedLabels.Add(index);
            }
            break;
        case PointerState::editing:
            canvas_.EditedComment = -1;
            break;
        default:
            break;
    }
    canvas_.GrabberVisible = false;
    end();
}

void CanvasPointer::dropIfToolChanged() {
    if (state_ != PointerState::idle && state_ != PointerState::editing && tool_ != ports_.tools.DrawMode()) {
        cancel();
    }
}

bool CanvasPointer::gestureNeeds(std::int32_t node) const {
    switch (state_) {
        case PointerState::drawing:
        case PointerState::pending:
            return canvas_.ConnectFromLabel == node;
        case PointerState::draggingNode:
        case PointerState::resizing:
            return captured_.number == node;
        case PointerState::editing:
            return canvas_.EditedComment == node;
        default:
            return false;
    }
}

void CanvasPointer::nodeGoes(const LabelsD& node) {
    const std::int32_t index = node.Index();
    if (gestureNeeds(index)) {
        cancel();
    }
    if (grabNode_ == index) {
        hideGrabber();
    }
}

void CanvasPointer::edgeGoes(const LinesD& edge) {
    const std::int32_t index = edge.Index();
    if (drawnEdge_ == index) {
        takeDrawnEdge();
        captures_ = false;
        end();
    } else if (state_ == PointerState::draggingHandle && edgeOfHandle(captured_.number) == index) {
        cancel();
    }
}

void CanvasPointer::focused() {
    ports_.tools.canvasFocused(canvas_);
}

// Presses.

void CanvasPointer::press(const PointerEvent& event) {
    dropIfToolChanged();
    if (captures_ && event.button != LeftButton) {
        if (state_ == PointerState::drawing && event.button == RightButton) {
            setCorner(event.at);
        }
        return;
    }
    // Whatever is left of an earlier gesture ends here: an undecided edge, an editor, a release that never came.
    cancel();
    ports_.tools.canvasFocused(canvas_);
    captures_ = event.button == LeftButton;
    captured_ = meant(event.hit);
    pressedAt_ = event.at;
    if (LabelsD* node = nodeAt(captured_)) {
        pressNode(*node, event);
    } else if (LinesD* edge = edgeAt(captured_)) {
        pressHandle(*edge, event);
    } else if (event.hit.element == Element::picture && event.button == LeftButton) {
        pressPicture(event);
    }
}

void CanvasPointer::pressPicture(const PointerEvent& event) {
    if (!event.ctrl) {
        canvas_.ClearCrop();
        canvas_.SelectedLines.Clear();
    }
    canvas_.ActiveLabel = -1;
    const Point at{SnapToGrid(event.at.x), SnapToGrid(event.at.y)};
    const std::string& tool = ports_.tools.DrawMode();
    if (tool == "Crop") {
        beginCrop(at);
    } else if (LabelsD* placed = canvas_.rules().placeNode(canvas_, tool, at)) {
        captures_ = false;  // the dialog takes the release
        ports_.windows.openProperties(canvas_, *placed);
    }
}

void CanvasPointer::pressNode(LabelsD& node, const PointerEvent& event) {
    canvas_.ActiveLabel = node.Index();
    const Point inside = node.inside(event.at);
    if (event.button != LeftButton) {
        if (event.button == RightButton) {
            pressNodeMenu(node, event);
        }
        return;
    }
    if (!event.ctrl) {
        canvas_.ClearCrop();
    }
    if (!canvas_.SelectedLabels.Add(node.Index())) {
        canvas_.SelectedLabels.Remove(node.Index());
    }
    canvas_.SelectedLines.Clear();
    const std::string& tool = ports_.tools.DrawMode();
    if (tool == "Resize") {
        beginResize(node, inside);
    } else if (tool == "Move") {
        beginMove(inside);
    } else if (const auto edgeType = canvas_.rules().edgeTypeOf(tool)) {
        if (canvas_.rules().mayStart(*edgeType, node)) {
            beginEdge(node, inside, *edgeType);
        }
    }
}

void CanvasPointer::pressHandle(LinesD& edge, const PointerEvent& event) {
    canvas_.ActiveEdge = edge.Index();
    if (event.button == RightButton) {
        if (!edge.Selected()) {
            canvas_.SelectedLines.Clear();
            canvas_.SelectedLines.Add(edge.Index());
        }
        showMenu("EdgesM", event.at);
        return;
    }
    if (!event.ctrl) {
        canvas_.SelectedLines.Clear();
    }
    if (!canvas_.SelectedLines.Add(edge.Index())) {
        canvas_.SelectedLines.Remove(edge.Index());
    }
    canvas_.ClearCrop();
}

// Moves.

void CanvasPointer::move(const PointerEvent& event) {
    dropIfToolChanged();
    if (captures_ && (event.button & LeftButton) == 0) {
        cancel();  // the release went astray
    }
    if (captures_) {
        follow(event);
    } else if (event.button == NoButton) {
        hover(event);
    }
}

void CanvasPointer::follow(const PointerEvent& event) {
    if (state_ == PointerState::idle && edgeAt(captured_)) {
        begin(PointerState::draggingHandle);
    }
    const LabelsD* node = nodeAt(captured_);
    switch (state_) {
        case PointerState::drawing:
            followEdge(event.at);
            break;
        case PointerState::draggingNode:
            drag({event.at.x - canvas_.DragStartX, event.at.y - canvas_.DragStartY}, node->Width(), node->Height(),
                 event.at);
            break;
        case PointerState::draggingHandle:
            drag({event.at.x - kHandleSize / 2, event.at.y - kHandleSize / 2}, kHandleSize, kHandleSize, event.at);
            break;
        case PointerState::resizing:
            followResize(*node, node->inside(event.at));
            break;
        case PointerState::cropping:
            followCrop(event.at);
            break;
        default:
            break;
    }
}

// Releases and double clicks.

void CanvasPointer::release(const PointerEvent& event) {
    dropIfToolChanged();
    if (event.button != LeftButton || !captures_) {
        return;
    }
    captures_ = false;
    switch (state_) {
        case PointerState::drawing:
            state_ = PointerState::pending;
            canvas_.ConnectPending = true;
            break;
        case PointerState::draggingNode:
            dropNode(event);
            break;
        case PointerState::draggingHandle:
            dropHandle(event);
            break;
        case PointerState::resizing:
            dropResize(*nodeAt(captured_));
            break;
        case PointerState::cropping:
            end();
            break;
        default:
            break;
    }
}

void CanvasPointer::doubleClick(const PointerEvent& event) {
    cancel();
    LabelsD* node = nodeAt(event.hit);
    if (!node || event.button != LeftButton) {
        return;
    }
    if (node->NodeType() == NodeTypeComment && node->onText(event.at)) {
        begin(PointerState::editing);
        canvas_.EditedComment = node->Index();
        canvas_.tellMarkers();
    } else if (node->NodeType() == NodeTypeRecordSet || node->NodeType() == NodeTypeActivity) {
        ports_.windows.openProperties(canvas_, *node);
    }
}

void CanvasPointer::editComment(const std::string& text) {
    LabelsD* node = canvas_.Labels.byIndex(canvas_.EditedComment);
    if (node && node->Comment() != text) {
        node->setComment(text);
        node->entity<entities::CommentProperties>()->Changed = true;
    }
}

void CanvasPointer::endEditing() {
    if (state_ == PointerState::editing) {
        cancel();
    }
}

}  // namespace orvent::canvas
