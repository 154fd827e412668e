// The context menus of a canvas.

#include "canvas/canvas_pointer.h"

namespace orvent::canvas {

void CanvasPointer::pressNodeMenu(LabelsD& node, const PointerEvent& event) {
    if (!canvas_.SelectedLabels.Item(node.Index())) {
        canvas_.ClearCrop();
        canvas_.SelectedLabels.Add(node.Index());
    }
    if (node.NodeType() == NodeTypeComment && !node.onText(event.at)) {
        return;
    }
    showMenu(nodeKind(node.NodeType()).menu, event.at);
}

void CanvasPointer::showMenu(std::string_view name, Point at) {
    if (const ContextMenu* menu = findMenu(canvas_.rules().menus(), name)) {
        menuNode_ = canvas_.ActiveLabel;
        menuEdge_ = canvas_.ActiveEdge;
        ports_.windows.showMenu(canvas_, *menu, at);
    }
}

void CanvasPointer::choose(std::string_view name) {
    cancel();
    const ContextItem* item = findItem(canvas_.rules().menus(), name);
    if (item && stateOf(*item).enabled) {
        restoreMenuTargets();
        runAction(*item);
    }
}

ItemState CanvasPointer::stateOf(const ContextItem& item) const {
    return canvas_.rules().stateOf(canvas_, item, canvas_.Labels.byIndex(menuNode_));
}

// The pointer may have touched other elements on its way to the item.
void CanvasPointer::restoreMenuTargets() {
    if (canvas_.Labels.byIndex(menuNode_)) {
        canvas_.ActiveLabel = menuNode_;
    }
    if (canvas_.Lines.byIndex(menuEdge_)) {
        canvas_.ActiveEdge = menuEdge_;
    }
}

void CanvasPointer::runAction(const ContextItem& item) {
    LabelsD* node = canvas_.Labels.byIndex(canvas_.ActiveLabel);
    LinesD* edge = canvas_.Lines.byIndex(canvas_.ActiveEdge);
    const entities::ActivityProperties* activity = node ? node->activity() : nullptr;
    switch (item.action) {
        case MenuAction::submenu:
            break;
        case MenuAction::properties:
            if (node) {
                ports_.windows.openProperties(canvas_, *node);
            }
            break;
        case MenuAction::zoom:
            if (activity && activity->Act_Type < 0) {
                canvas_.messages().tell("Please set the activity's type!!");
            } else if (activity) {
                ports_.windows.openZoom(canvas_, *node);
            }
            break;
        case MenuAction::expanded:
            if (node && !canvas_.rules().toggleExpanded(canvas_, *node)) {
                ports_.windows.close(canvas_);
            }
            break;
        case MenuAction::notReady:
            if (node) {
                node->setReady(false);
            }
            break;
        case MenuAction::templateWizard:
            if (activity) {
                ports_.windows.openTemplateWizard(canvas_, *node);
            }
            break;
        case MenuAction::deleteNodes:
            DeleteSelectedNodes(canvas_, std::get<NodeTypeCode>(item.value), ports_.links, canvas_.rules());
            break;
        case MenuAction::deleteEdges:
            DeleteSelectedEdges(canvas_, canvas_.rules());
            break;
        case MenuAction::setAngle:
            if (edge) {
                edge->setAngle(std::get<AngleCode>(item.value));
            }
            break;
        case MenuAction::edit:
            ports_.windows.edit(canvas_, std::get<EditAction>(item.value));
            break;
        case MenuAction::straightenEdge:
            if (edge) {
                canvas_.straightenEdges(edge);
            }
            break;
    }
}

}  // namespace orvent::canvas
