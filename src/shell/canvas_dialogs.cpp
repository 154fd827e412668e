#include "shell/canvas_dialogs.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "editors/insert_between.h"
#include "editors/item_prop.h"
#include "editors/record_set_prop.h"
#include "editors/selection_prop.h"
#include "entities/members.h"
#include "links/check_consistency.h"
#include "shell/types_form.h"

namespace orvent::shell {

namespace {

/// At its end the window that a dialog kept from input takes some again.
class Awake {
  public:
    explicit Awake(WindowKeeper& windows) : windows_(windows) {}
    ~Awake() { windows_.enabledChanged(); }
    Awake(const Awake&) = delete;
    Awake& operator=(const Awake&) = delete;

  private:
    WindowKeeper& windows_;
};

/// A dialog has changed what a node stands for.
void touch(canvas::CanvasForm& form, canvas::NodeNumber node) {
    if (form.touched) {
        form.touched->node(node);
    }
}

/// Offers the edges that a dialog's new links ask for, at its end.
class NewEdges {
  public:
    NewEdges(canvas::CanvasForm& form, const canvas::LabelsD& node)
        : form_(dynamic_cast<canvas::DrawForm*>(&form)), node_(node.Index()) {
        if (form_) {
            before_ = links::wantedEdges(*form_, node);
        }
    }
    void offer() const {
        const canvas::LabelsD* node = form_ ? form_->Labels.byIndex(node_) : nullptr;
        if (!node) {
            return;
        }
        std::vector<canvas::WantedEdge> edges = links::wantedEdges(*form_, *node);
        std::erase_if(edges, [this](const canvas::WantedEdge& edge) {
            return std::find(before_.begin(), before_.end(), edge) != before_.end();
        });
        if (!edges.empty()) {
            form_->offerEdges(std::move(edges));
        }
    }

  private:
    canvas::DrawForm* form_;
    canvas::NodeNumber node_;
    std::vector<canvas::WantedEdge> before_;
};

/// The key of the row in which the dialog of an activity shows a member, or the function that has it.
std::string rowKeyOf(const entities::ActivityProperties& activity, const analysis::Place& place) {
    if (place.function > 0) {
        const entities::Act_FunctionsCollection* functions = activity.Act_Functions.peek();
        const entities::FunctionProperties* function = functions ? functions->Item(place.function) : nullptr;
        return function ? function->Function_Key : std::string();
    }
    std::string key;
    withList(activity, place.list, [&](const auto& list, entities::NodeKindCode) {
        const auto* member = list.peek() ? list.peek()->Item(place.member) : nullptr;
        key = member ? member->Key : std::string();
    });
    return key;
}

/// The provider edge at a place where an activity is dropped.
template <class Form>
auto* edgeUnder(Form& form, const editors::Placement& placement, const canvas::Hit& hit) {
    auto* edge = placement.isActivity() && !canvas::isGiven(hit.node) ? form.Lines.byIndex(hit.edge) : nullptr;
    return edge && edge->EdgeType() == canvas::EdgeTypeProvider ? edge : nullptr;
}

}  // namespace

void CanvasDialogs::openAt(canvas::CanvasForm& form, canvas::LabelsD& node, const analysis::Place& place) {
    auto* zoom = dynamic_cast<zoom::ZoomView*>(&form);
    if (zoom && !zoom->bearsName(node)) {
        return;  // it repeats another node, and is edited there
    }
    const Awake awake(windows_);
    const canvas::NodeNumber index = node.Index();
    const NewEdges edges(form, node);
    if (node.activity()) {
        // The program goes on while it is open; only the window that it belongs to takes no input.
        auto dialog = std::make_unique<editors::SetActProp>(services_, form, node);
        dialog->onApplied = [&windows = windows_, &form, index] {
            touch(form, index);
            windows.applied(form);
        };
        dialog->onEnd = [&windows = windows_, &form, index, edges] {
            touch(form, index);
            edges.offer();
            windows.enabledChanged();
        };
        if (const std::string key = rowKeyOf(*dialog->tempProp, place); !key.empty()) {
            dialog->showRow(place.function > 0 ? entities::KindFunction : place.list, key);
        }
        services_.dialogs.open(std::move(dialog));
    } else if (node.recordSet()) {
        {
            editors::RecordSetProp dialog(services_, form, node);
            dialog.AttList.select(place.member);
            services_.dialogs.show(dialog);
        }
        touch(form, index);
        edges.offer();
    } else if (zoom && editors::ItemProp::edits(*zoom, node)) {
        repository::WholeFunctionTypes types(services_.catalogue);
        editors::ItemProp dialog(*zoom, node, types);
        services_.dialogs.show(dialog);
    }
}

bool CanvasDialogs::rename(canvas::CanvasForm& form, canvas::LabelsD& node, const std::string& name) {
    const canvas::NodeNumber index = node.Index();
    const bool renamed = editors::renameInPlace(services_, form, node, name);
    if (renamed) {
        touch(form, index);
    }
    windows_.enabledChanged();  // a message had the keys
    return renamed;
}

bool CanvasDialogs::renameAt(canvas::CanvasForm& form, canvas::LabelsD& node, const analysis::Place& place,
                             const std::string& name) {
    bool renamed = false;
    if (node.activity()) {
        editors::SetActProp dialog(services_, form, node);
        dialog.showRow(place.list, rowKeyOf(*dialog.tempProp, place));
        renamed = dialog.AfterLabelEdit(dialog.frontList().selected(), name) && dialog.takeOver();
    } else if (node.recordSet()) {
        editors::RecordSetProp dialog(services_, form, node);
        renamed = dialog.AfterLabelEdit(place.member, name) && dialog.OK();
    }
    if (renamed) {
        touch(form, node.Index());
        windows_.applied(form);
    }
    windows_.enabledChanged();
    return renamed;
}

void CanvasDialogs::openTemplateWizard(canvas::CanvasForm& form, canvas::LabelsD& activity) {
    const Awake awake(windows_);
    const canvas::NodeNumber index = activity.Index();
    services_.wizard.LDLCreate(form.scenario(), *activity.activity());
    touch(form.scenario(), index);
}

std::string CanvasDialogs::whyNotPlaced(const canvas::CanvasForm& form, const std::string& key,
                                        const canvas::Hit& hit) const {
    const auto* design = dynamic_cast<const canvas::DrawForm*>(&form);
    const auto placement = placementOf(key, services_.catalogue.tables.activityTypes);
    if (!design || !form.Enabled()) {
        return "Nodes are placed in the window of a scenario.";
    }
    if (!placement) {
        return "The catalogue has no such type any more.";
    }
    if (canvas::isGiven(hit.node)) {
        return "Another node stands there.";
    }
    const canvas::LinesD* edge = edgeUnder(*design, *placement, hit);
    return edge ? editors::whyNotBetween(*design, *edge) : std::string();
}

void CanvasDialogs::placeAt(canvas::CanvasForm& form, const std::string& key, const canvas::Hit& hit,
                            editors::Spot spot) {
    const std::string why = whyNotPlaced(form, key, hit);
    if (!why.empty()) {
        services_.repository.progress.status(why);
        return;
    }
    auto& design = dynamic_cast<canvas::DrawForm&>(form);
    const editors::Placement placement = *placementOf(key, services_.catalogue.tables.activityTypes);
    windows_.settle({});
    spot.edge = edgeUnder(design, placement, hit);
    const canvas::LabelsD* node = editors::placeNode(services_, design, placement, spot);
    windows_.settle({});
    windows_.enabledChanged();
    if (node) {
        desk_.reveal(form, *node);
        desk_.beginTyping(form);
    }
}

void CanvasDialogs::showSelection(canvas::CanvasForm& form) {
    if (form.SelectedLabels.Count() == 0) {
        services_.repository.progress.status("Select a node first.");
        return;
    }
    editors::SelectionProp dialog(services_, form);
    services_.dialogs.show(dialog);
    windows_.enabledChanged();
}

void CanvasDialogs::placeAlone(canvas::DrawForm& form, const std::string& key) {
    const auto placement = placementOf(key, services_.catalogue.tables.activityTypes);
    const std::vector<canvas::EdgeNumber> edges = form.SelectedLines.members();
    const bool single = edges.size() == 1 && form.SelectedLabels.Count() == 0;
    canvas::LinesD* edge = placement && single ? edgeUnder(form, *placement, canvas::Hit::onLine(edges[0])) : nullptr;
    if (edge) {
        placeAt(form, key, canvas::Hit::onLine(edge->Index()), {{edge->Xm(), edge->Ym()}, nullptr, true});
    } else {
        placeAt(form, key, {}, {desk_.middleOf(form), nullptr, true});
    }
}

std::string CanvasDialogs::typeOf(const canvas::LabelsD& node) const {
    const entities::CatalogueTables& tables = services_.catalogue.tables;
    if (const auto* activity = node.activity()) {
        return tables.activityTypes.shown(activity->Act_Type);
    }
    if (const auto* function = node.entity<entities::FunctionProperties>()) {
        return tables.functionTypes.shown(function->Function_Type);
    }
    if (const auto* attribute = node.entity<entities::AttributeProperties>()) {
        return tables.dataTypes.shown(attribute->Attribute_Type);
    }
    const auto* parameter = node.entity<entities::ParameterProperties>();
    return parameter ? tables.dataTypes.shown(parameter->Parameter_Type) : std::string();
}

}  // namespace orvent::shell
