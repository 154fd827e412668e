#include "zoom/drawn_members.h"

#include <algorithm>
#include <optional>

#include "zoom/relationship_matrix.h"
#include "zoom/unfolding_parts.h"
#include "zoom/waiting_functions.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

namespace {

std::optional<Members> listOf(NodeKindCode kind) {
    switch (kind) {
        case KindInput:
            return Members::Inputs;
        case KindOutput:
            return Members::Outputs;
        case KindParameter:
            return Members::Parameters;
        default:
            return std::nullopt;
    }
}

}  // namespace

DrawnMembers::DrawnMembers(ZoomForm& form, LabelsD& owner) {
    if (!owner.activity() || !form.bearsName(owner)) {
        return;
    }
    for (const std::int32_t edge : partOfEdges(form, owner)) {
        LabelsD& node = *targetOf(form, edge);
        const RelationEnd end(node);
        if (const auto* function = node.entity<FunctionProperties>();
            function && function->ParentKeyName() == owner.KeyName()) {
            Unfolding(form, node, FoldedOrder::kept).collapseFunction();
            form.order.giveBack(node);
            letWait(form, node, owner);
            form.Lines.RemoveFull(edge);
        } else if (end.present() && end.parentKeyName() == owner.KeyName() && listOf(end.kind())) {
            members_.push_back({*listOf(end.kind()), end.key(), node.box()});
            form.Labels.Remove(node.Index());
        }
    }
    std::reverse(members_.begin(), members_.end());
}

void DrawnMembers::restore(ZoomForm& form, LabelsD& owner) const {
    const std::int32_t active = form.ActiveLabel;
    for (const Member& member : members_) {
        if (LabelsD* node = Unfolding(form, owner).showAlone(member.list, member.key)) {
            node->setBox(member.box);
        }
    }
    if (owner.Index() != form.CentralActivityNo) {  // there they are unfolded with the others
        Unfolding(form, owner).tieWaiting();
    }
    form.ActiveLabel = active;
}

}  // namespace orvent::zoom
