#include "zoom/drawn_members.h"

#include <algorithm>

#include "zoom/part_of.h"
#include "zoom/relationship_matrix.h"
#include "zoom/waiting_functions.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

namespace {

bool isActivityMember(const RelationEnd& end) {
    return end.kind() == KindInput || end.kind() == KindOutput || end.kind() == KindParameter;
}

}  // namespace

DrawnMembers::DrawnMembers(ZoomView& view, LabelsD& owner) {
    if (!owner.activity() || !view.bearsName(owner)) {
        return;
    }
    for (const canvas::EdgeNumber edge : partOfEdges(view, owner)) {
        LabelsD& node = *targetOf(view, edge);
        const RelationEnd end(node);
        if (const auto* function = node.entity<FunctionProperties>();
            function && function->ParentKeyName() == owner.KeyName()) {
            Expansion(view, node, CollapsedOrder::kept).collapseFunction();
            view.order.giveBack(node);
            letWait(view, node, owner);
            view.Lines.RemoveFull(edge);
        } else if (end.present() && end.parentKeyName() == owner.KeyName() && isActivityMember(end)) {
            members_.push_back({end.kind(), end.key(), node.box()});
            view.Labels.Remove(node.Index());
        }
    }
    std::reverse(members_.begin(), members_.end());
}

void DrawnMembers::restore(ZoomView& view, LabelsD& owner) const {
    const canvas::NodeNumber active = view.ActiveLabel;
    for (const Member& member : members_) {
        if (LabelsD* node = Expansion(view, owner).showAlone(member.kind, member.key)) {
            node->setBox(member.box);
        }
    }
    if (owner.Index() != view.CentralActivityNo) {  // there they are expanded with the others
        ActivityExpansion(view, owner).tieWaiting();
    }
    view.ActiveLabel = active;
}

}  // namespace orvent::zoom
