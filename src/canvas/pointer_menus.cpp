#include "canvas/pointer_menus.h"

#include <algorithm>
#include <utility>
#include <variant>
#include <vector>

namespace orvent::canvas {

void PointerMenus::pressNode(LabelsD& node, Point at) {
    if (!canvas_.SelectedLabels.Item(node.Index())) {
        canvas_.ClearCrop();
        canvas_.SelectedLabels.Add(node.Index());
    }
    if (node.NodeType() != NodeTypeComment || node.onText(at)) {
        show(nodeKind(node.NodeType()).menu, at);
    }
}

void PointerMenus::pressEdge(LinesD& edge, Point at) {
    if (!edge.Selected()) {
        canvas_.SelectedLines.Clear();
        canvas_.SelectedLines.Add(edge.Index());
    }
    show("EdgesM", at);
}

bool PointerMenus::openSelected() {
    const std::vector<NodeNumber> nodes = canvas_.SelectedLabels.members();
    if (const LabelsD* node = nodes.empty() ? nullptr : canvas_.Labels.byIndex(nodes.back())) {
        canvas_.ActiveLabel = node->Index();
        show(nodeKind(node->NodeType()).menu, {node->Left() + node->Width() / 2, node->Top() + node->Height() / 2});
        return true;
    }
    const std::vector<EdgeNumber> edges = canvas_.SelectedLines.members();
    if (const LinesD* edge = edges.empty() ? nullptr : canvas_.Lines.byIndex(edges.back())) {
        canvas_.ActiveEdge = edge->Index();
        show("EdgesM", {edge->Xm(), edge->Ym()});
        return true;
    }
    return false;
}

void PointerMenus::show(std::string_view name, Point at) {
    if (const ContextMenu* menu = findMenu(canvas_.rules().menus(), name)) {
        node_ = canvas_.ActiveLabel;
        edge_ = canvas_.ActiveEdge;
        ports_.windows.showMenu(canvas_, *menu, at);
    }
}

void PointerMenus::choose(std::string_view name) {
    const ContextItem* item = findItem(canvas_.rules().menus(), name);
    if (item && stateOf(*item).enabled) {
        restoreTargets();
        run(*item);
    }
}

ItemState PointerMenus::stateOf(const ContextItem& item) const {
    return canvas_.rules().stateOf(canvas_, item, canvas_.Labels.byIndex(node_));
}

void PointerMenus::restoreTargets() {
    if (canvas_.Labels.byIndex(node_)) {
        canvas_.ActiveLabel = node_;
    }
    if (canvas_.Lines.byIndex(edge_)) {
        canvas_.ActiveEdge = edge_;
    }
}

void PointerMenus::run(const ContextItem& item) {
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
        case MenuAction::showLinks:
            if (edge) {
                showLinks(*edge);
            }
            break;
        case MenuAction::straightenEdge:
            if (edge) {
                canvas_.straightenEdges(edge);
            }
            break;
    }
}

void PointerMenus::showLinks(const LinesD& edge) {
    const EdgeLinks links = ports_.links.linksBehind(canvas_, edge);
    Light light;
    if (links.count > 0) {
        light.nodes = {std::min(edge.FromLabel(), edge.ToLabel()), std::max(edge.FromLabel(), edge.ToLabel())};
        for (const LinesD& beside : canvas_.Lines) {
            if (beside.FromLabel() == edge.FromLabel() && beside.ToLabel() == edge.ToLabel()) {
                light.edges.push_back(beside.Index());
            }
        }
        std::sort(light.edges.begin(), light.edges.end());
        light.lasts = true;
    }
    canvas_.setLight(std::move(light));
    ports_.tools.hint(links.words);
}

}  // namespace orvent::canvas
