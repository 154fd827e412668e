#include "editors/place_node.h"

#include "canvas/canvas_rules.h"
#include "canvas/node_kinds.h"
#include "canvas/node_moves.h"
#include "editors/insert_between.h"
#include "platform/fault.h"

namespace orvent::editors {

using canvas::LabelsD;

namespace {

/// The node that its tool makes, without a dialog.
LabelsD* madeBy(canvas::DrawForm& form, canvas::NodeTypeCode kind, canvas::Point at) {
    const canvas::NodeNumber former = form.LabelsNo;
    form.rules().placeNode(form, canvas::nodeKind(kind).tool, at);
    return form.LabelsNo == former ? nullptr : form.Labels.byIndex(form.LabelsNo);
}

}  // namespace

bool giveType(const EditorServices& services, canvas::CanvasForm& form, LabelsD& activity, std::int16_t type) {
    try {
        SetActProp dialog(services, form, activity);
        dialog.ActTypes_Click(type);
        return dialog.tempProp->Act_Type == type && dialog.takeOver();
    } catch (const platform::Fault& fault) {  // the dialog does not open when the catalogue cannot be read
        services.repository.messages.tell(fault.description(), {}, platform::Icon::critical);
        return false;
    }
}

LabelsD* placeNode(const EditorServices& services, canvas::DrawForm& form, const Placement& placement,
                   const Spot& spot) {
    LabelsD* node = madeBy(form, placement.kind, {canvas::SnapToGrid(spot.at.x), canvas::SnapToGrid(spot.at.y)});
    if (!node) {
        return nullptr;
    }
    if (placement.isActivity() && !giveType(services, form, *node, placement.type)) {
        form.Labels.Remove(node->Index());
        return nullptr;
    }
    if (spot.findsRoom) {
        node->setBox(canvas::freePlaceNear(form, *node, node->box()));
    }
    if (spot.edge && placement.isActivity()) {
        insertBetween(form, *spot.edge, *node, services.shortNames && *services.shortNames);
    }
    form.ClearCrop();
    form.SelectedLines.Clear();
    form.SelectedLabels.Add(node->Index());
    form.growPicture();
    return node;
}

}  // namespace orvent::editors
