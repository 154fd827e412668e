#include "canvas/canvas.h"

#include <algorithm>
#include <utility>

#include "canvas/taken_name.h"

namespace orvent::canvas {

Canvas::Canvas(const CanvasServices& services)
    : Labels(*this), Lines(*this), SelectedLabels(*this), SelectedLines(*this), services_(services) {}

Canvas::~Canvas() = default;

void Canvas::clear() {
    ClearCrop();
    SelectedLines.Clear();
    Labels.Clear();
    Lines.Clear();
    NamesColl.Clear();
    DeletedNodes = std::make_shared<DeletedNodesCollection>();
}

void Canvas::growPicture() {
    float right = PicForm.Width();
    float bottom = PicForm.Height();
    for (const LabelsD& node : Labels) {
        right = std::max(right, node.box().right());
        bottom = std::max(bottom, node.box().bottom());
    }
    PicForm.setSize(right, bottom);
    tellPicture();
}

void Canvas::setLight(Light light) {
    if (light != light_) {
        light_ = std::move(light);
        listeners_.tell([](CanvasListener& listener) { listener.lightChanged(); });
    }
}

void Canvas::setFound(std::vector<NodeNumber> nodes) {
    if (nodes != found_) {
        found_ = std::move(nodes);
        listeners_.tell([](CanvasListener& listener) { listener.lightChanged(); });
    }
}

void Canvas::leadTo(const LabelsD& node) {
    SelectedLines.Clear();
    SelectedLabels.Clear();
    SelectedLabels.Add(node.Index());
    listeners_.tell([&node](CanvasListener& listener) { listener.nodeMeant(node); });
}

const entities::FunctionProperties* Canvas::functionNamed(const std::string& name) const {
    const LabelsD* node = nodeNamed(name);
    return node ? node->entity<entities::FunctionProperties>() : nullptr;
}

void Canvas::tellChanged(const LabelsD& node) {
    if (manyChanges_ == 0) {
        listeners_.tell([&node](CanvasListener& listener) { listener.nodeChanged(node); });
    }
}

void Canvas::tellChanged(const LinesD& edge) {
    if (manyChanges_ == 0) {
        listeners_.tell([&edge](CanvasListener& listener) { listener.edgeChanged(edge); });
    }
}

void Canvas::tellRenamed(const Rename& rename) {
    listeners_.tell([&rename](CanvasListener& listener) { listener.memberRenamed(rename); });
}

void Canvas::tellPicture() {
    listeners_.tell([](CanvasListener& listener) { listener.pictureChanged(); });
}

void Canvas::nameRefused() {
    if (!quietNames) {
        tellTakenName(messages());
    }
}

void Canvas::nodeMoved(const LabelsD& node) {
    if (isZoom() && node.box().bottom() >= BiggestHeight) {
        BiggestHeight = node.box().bottom() + 3 * settings().BigHeight;
    }
    for (const EdgeNumber number : node.StartingLines()) {
        if (LinesD* line = Lines.byIndex(number)) {
            line->setStart(node.GrabPoint(line->FromGrabbingPoint()));
        }
    }
    for (const EdgeNumber number : node.EndingLines()) {
        if (LinesD* line = Lines.byIndex(number)) {
            line->setEnd(node.GrabPoint(line->ToGrabbingPoint()));
        }
    }
}

void Canvas::detachEnd(EdgeNumber edge, EdgeEnd which) {
    if (LinesD* line = Lines.byIndex(edge)) {
        line->detach(which);
    }
}

void Canvas::touch(const LabelsD& node) {
    ++changes_;
    if (touched) {
        touched->node(node.Index());
    }
}

void Canvas::touch(const LinesD& edge) {
    ++changes_;
    if (touched) {
        touched->edge(edge.Index());
    }
}

void Canvas::touchBox(const LabelsD& node) {
    if (touched) {
        touched->head(node.Index());
    }
}

ManyChanges::~ManyChanges() {
    if (--canvas_.manyChanges_ == 0) {
        canvas_.listeners_.tell([](CanvasListener& listener) { listener.manyChanged(); });
    }
}

void Canvas::forgetNode(const LabelsD& node) {
    listeners_.tell([&node](CanvasListener& listener) { listener.nodeGoes(node); });
    touch(node);
    const NodeNumber index = node.Index();
    SelectedLabels.forget(index);
    for (NodeNumber* field : {&CurrentNode, &ConnectFromLabel, &ActiveLabel}) {
        if (*field == index) {
            *field = kNoNode;
        }
    }
}

void Canvas::forgetEdge(const LinesD& edge) {
    listeners_.tell([&edge](CanvasListener& listener) { listener.edgeGoes(edge); });
    touch(edge);
    const EdgeNumber index = edge.Index();
    SelectedLines.forget(index);
    for (EdgeNumber* field : {&CurrentEdge, &ActiveEdge}) {
        if (*field == index) {
            *field = kNoEdge;
        }
    }
}

}  // namespace orvent::canvas
