#include "canvas/canvas.h"

#include <algorithm>

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
    DeletedNodes.Clear();
}

void Canvas::growPicture() {
    float right = PicForm.Width();
    float bottom = PicForm.Height();
    for (const LabelsD& node : Labels) {
        right = std::max(right, node.box().right());
        bottom = std::max(bottom, node.box().bottom());
    }
    PicForm.setSize(right, bottom);
    if (view_) {
        view_->markersChanged();
    }
}

void Canvas::ClearCrop() {
    const bool shown = CroppingRect.Visible;
    CroppingRect.Width = CroppingRect.Height = MarkerBox::kRestSize;
    CroppingRect.Visible = false;
    SelectedLabels.Clear();
    if (shown && view_) {
        view_->markersChanged();
    }
}

const entities::FunctionProperties* Canvas::functionNamed(const std::string& name) const {
    const LabelsD* node = nodeNamed(name);
    return node ? node->entity<entities::FunctionProperties>() : nullptr;
}

void Canvas::forgetNode(std::int32_t index) {
    if (watcher_) {
        watcher_->nodeGoes(index);
    }
    SelectedLabels.forget(index);
    for (std::int32_t* field : {&CurrentNode, &ConnectFromLabel, &ActiveLabel}) {
        if (*field == index) {
            *field = -1;
        }
    }
}

void Canvas::forgetEdge(std::int32_t index) {
    if (watcher_) {
        watcher_->edgeGoes(index);
    }
    SelectedLines.forget(index);
    for (std::int32_t* field : {&CurrentEdge, &ActiveEdge}) {
        if (*field == index) {
            *field = -1;
        }
    }
}

}  // namespace orvent::canvas
