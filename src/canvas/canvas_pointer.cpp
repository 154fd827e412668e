// Which gesture an event begins, goes on with or ends.

#include "canvas/canvas_pointer.h"

#include <utility>

#include "canvas/pointer_boxes.h"
#include "canvas/pointer_comment.h"
#include "canvas/pointer_edges.h"
#include "canvas/pointer_name.h"

namespace orvent::canvas {

namespace {

bool isArrow(const std::string& tool) {
    return tool.empty() || tool == "Arrow";
}

}  // namespace

CanvasPointer::CanvasPointer(CanvasForm& form, ViewState& view, const PointerPorts& ports)
    : canvas_(form),
      view_(view),
      ports_(ports),
      targets_(form, ports.tools),
      hover_(form, view, ports.tools),
      menus_(form, ports),
      keys_(form, ports),
      subscription_(form.listen(*this)) {}

CanvasPointer::~CanvasPointer() {
    cancel();
}

void CanvasPointer::cancel() {
    captures_ = false;
    if (canvas_.light().lasts) {
        canvas_.setLight({});
    }
    // Taken out first: what it takes back is told to this one, too.
    if (const std::unique_ptr<Gesture> former = std::move(gesture_)) {
        former->cancel();
        hover_.hideGrabber();
    }
}

void CanvasPointer::dropIfToolChanged() {
    if (gesture_ && gesture_->endsWithTool() && tool_ != ports_.tools.DrawMode()) {
        cancel();
    }
}

void CanvasPointer::nodeGoes(const LabelsD& node) {
    if (gesture_ && gesture_->needsNode(node.Index())) {
        cancel();
    }
    if (hover_.grabNode() == node.Index()) {
        hover_.hideGrabber();
    }
}

void CanvasPointer::edgeGoes(const LinesD& edge) {
    if (gesture_ && gesture_->needsEdge(edge.Index())) {
        cancel();
    }
}

// Presses.

void CanvasPointer::press(const PointerEvent& event) {
    second_.forget();
    dropIfToolChanged();
    if (captures_ && event.button != LeftButton) {
        if (gesture_ && event.button == RightButton) {
            gesture_->pressAside(event.at);
        }
        return;
    }
    const bool busy = gesture_ != nullptr;
    // Whatever is left of an earlier gesture ends here: an undecided edge, an editor, a release that never came.
    cancel();
    ports_.tools.canvasFocused(canvas_);
    captures_ = event.button == LeftButton;
    const Hit hit = busy && event.hit.element == Element::line ? Hit{} : targets_.meant(event.hit);
    if (LabelsD* node = targets_.nodeAt(hit)) {
        pressNode(*node, event);
    } else if (LinesD* edge = targets_.edgeAt(hit)) {
        pressEdge(*edge, event);
        if (hit.element == Element::handle && event.button == LeftButton) {
            begin<HandleDrag>(view_, ports_.tools, hover_, hit.handle);
        }
    } else if (hit.element == Element::picture && event.button == LeftButton) {
        pressPicture(event);
    }
}

void CanvasPointer::pressPicture(const PointerEvent& event) {
    if (!event.ctrl) {
        canvas_.ClearCrop();
        canvas_.SelectedLines.Clear();
    }
    canvas_.ActiveLabel = kNoNode;
    const Point at{SnapToGrid(event.at.x), SnapToGrid(event.at.y)};
    const std::string& tool = ports_.tools.DrawMode();
    const NodeNumber former = canvas_.LabelsNo;
    if (tool == "Crop") {
        begin<Crop>(view_, at, DragStart(event.at));
    } else if (LabelsD* placed = canvas_.rules().placeNode(canvas_, tool, at)) {
        captures_ = false;  // the dialog takes the release
        ports_.windows.openProperties(canvas_, *placed);
    } else if (const LabelsD* made = canvas_.LabelsNo == former ? nullptr : canvas_.Labels.byIndex(canvas_.LabelsNo);
               made && made->NodeType() == NodeTypeComment) {
        captures_ = false;
        begin<CommentEditing>(view_, *made);  // it takes what is typed
    } else if (isArrow(tool)) {
        begin<Crop>(view_, at, DragStart(event.at, event.slack));
    }
}

void CanvasPointer::pressNode(LabelsD& node, const PointerEvent& event) {
    canvas_.ActiveLabel = node.Index();
    const Point inside = node.inside(event.at);
    if (event.button != LeftButton) {
        if (event.button == RightButton) {
            menus_.pressNode(node, event.at);
        }
        return;
    }
    const bool isSelected = canvas_.SelectedLabels.Item(node.Index());
    if (isArrow(ports_.tools.DrawMode())) {
        second_.pressed(canvas_, node, event);
    }
    const bool ofGroup = canvas_.SelectedLabels.Count() > 1 && isSelected;
    std::vector<NodeNumber> group = ofGroup ? canvas_.SelectedLabels.members() : std::vector<NodeNumber>{};
    if (!event.ctrl) {
        canvas_.ClearCrop();
    }
    if (!canvas_.SelectedLabels.Add(node.Index())) {
        canvas_.SelectedLabels.Remove(node.Index());
    }
    canvas_.SelectedLines.Clear();
    const std::string& tool = ports_.tools.DrawMode();
    if (tool == "Resize") {
        begin<NodeResize>(view_, node, inside);
    } else if (tool == "Move") {
        begin<NodeDrag>(view_, ports_.tools, node, DragStart(event.at), std::vector<NodeNumber>{});
    } else if (const auto edgeType = canvas_.rules().edgeTypeOf(tool)) {
        if (canvas_.rules().mayStart(*edgeType, node)) {
            begin<EdgeDrawing>(view_, ports_.tools, hover_, node, inside, *edgeType);
        } else {
            ports_.tools.hint("An edge of this kind cannot start here.");
        }
    } else if (isArrow(tool) && !event.ctrl) {
        begin<NodeDrag>(view_, ports_.tools, node, DragStart(event.at, event.slack), std::move(group));
    }
}

void CanvasPointer::pressEdge(LinesD& edge, const PointerEvent& event) {
    canvas_.ActiveEdge = edge.Index();
    if (event.button == RightButton) {
        menus_.pressEdge(edge, event.at);
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
    if (captures_ && gesture_) {
        second_.moved(event);
        gesture_->follow(event);
    } else if (!captures_ && event.button == NoButton) {
        hover(event);
    }
}

void CanvasPointer::hover(const PointerEvent& event) {
    const Hit hit = targets_.meant(event.hit);
    if (LabelsD* node = targets_.nodeAt(hit)) {
        hover_.overNode(*node, node->inside(event.at));
    } else if (LinesD* edge = hit.element == Element::handle ? targets_.edgeAt(hit) : nullptr) {
        hover_.overHandle(*edge);
    } else {
        hover_.overPicture();
    }
    if (std::unique_ptr<Gesture> pending = std::move(gesture_); pending && !pending->hover(hit)) {
        gesture_ = std::move(pending);
    }
}

// Releases and double clicks.

void CanvasPointer::release(const PointerEvent& event) {
    dropIfToolChanged();
    if (event.button != LeftButton || !captures_) {
        return;
    }
    captures_ = false;
    second_.released(event);
    // Taken out first: a message at its end runs a loop of its own, in which the pointer may begin anew.
    if (std::unique_ptr<Gesture> held = std::move(gesture_); held && !held->release(event)) {
        gesture_ = std::move(held);
        hover({event.hit, event.at, NoButton, event.ctrl, event.slack});  // as the first move would
    }
}

void CanvasPointer::doubleClick(const PointerEvent& event) {
    cancel();
    if (event.button != LeftButton) {
        return;
    }
    const Hit hit = targets_.meant(event.hit);
    if (LinesD* edge = hit.element == Element::line ? targets_.edgeAt(hit) : nullptr;
        edge && edge->Angle() == AngleNone) {
        edge->placeMiddle(event.at);
    }
    LabelsD* node = targets_.nodeAt(event.hit);
    if (!node) {
        return;
    }
    if (node->NodeType() == NodeTypeComment && node->onText(event.at)) {
        begin<CommentEditing>(view_, *node);
    } else if (canvas_.isZoom() || node->NodeType() == NodeTypeRecordSet || node->NodeType() == NodeTypeActivity) {
        ports_.windows.openProperties(canvas_, *node);
    }
}

void CanvasPointer::editComment(const std::string& text) {
    if (auto* editing = dynamic_cast<CommentEditing*>(gesture_.get())) {
        editing->take(text);
    }
}

void CanvasPointer::endEditing() {
    if (state() == PointerState::editing) {
        cancel();
    }
}

bool CanvasPointer::beginNaming() {
    const LabelsD* node = captures_ ? nullptr : keys_.onlySelected();
    const auto name = node ? ports_.windows.nameInPlace(canvas_, *node) : std::nullopt;
    if (name) {
        cancel();
        begin<NameEditing>(view_, *node, *name);
    }
    return name.has_value();
}

void CanvasPointer::beginTyping() {
    const LabelsD* node = captures_ ? nullptr : keys_.onlySelected();
    if (node && node->NodeType() == NodeTypeComment) {
        cancel();
        begin<CommentEditing>(view_, *node);
    } else {
        beginNaming();
    }
}

bool CanvasPointer::dragOver(const std::string& key, const Hit& hit) {
    std::string why = ports_.windows.whyNotPlaced(canvas_, key, hit);
    if (why != whyNot_) {
        whyNot_ = std::move(why);
        ports_.tools.hint(whyNot_);
    }
    return whyNot_.empty();
}

void CanvasPointer::drop(const std::string& key, const Hit& hit, Point at) {
    cancel();
    whyNot_.clear();
    ports_.windows.place(canvas_, key, hit, at);
}

void CanvasPointer::takeName(const std::string& name) {
    const NodeNumber index = view_.NamedNode;
    LabelsD* node = canvas_.Labels.byIndex(index);
    if (!node || state() != PointerState::editing) {
        return;
    }
    cancel();  // a message has the keys meanwhile
    if (!ports_.windows.rename(canvas_, *node, name) && canvas_.Labels.byIndex(index) && canvas_.Enabled()) {
        begin<NameEditing>(view_, *node, name);
    }
}

}  // namespace orvent::canvas
