#include "zoom/part_of.h"

#include <algorithm>

#include "zoom/relationship_matrix.h"

namespace orvent::zoom {

using namespace entities;
using canvas::LabelsD;

const std::string& ownerNameOf(const ZoomView& view, const LabelsD& owner) {
    const ActivityProperties* activity = owner.activity();
    const RecordSetProperties* recordSet = owner.recordSet();
    const auto* function = owner.entity<FunctionProperties>();
    if (view.bearsName(owner) || !(activity || recordSet || function)) {
        return owner.KeyName();
    }
    return activity ? activity->Act_Name : recordSet ? recordSet->RecordSet_Name : function->Function_Key;
}

bool isFree(const canvas::Canvas& canvas, const std::string& owner) {
    return owner.empty() || !canvas.isNameTaken(owner);
}

std::vector<canvas::EdgeNumber> partOfEdges(const ZoomView& view, const LabelsD& owner) {
    std::vector<canvas::EdgeNumber> edges;
    for (const canvas::EdgeNumber number : owner.StartingLines()) {
        const canvas::LinesD* edge = view.Lines.byIndex(number);
        if (edge && edge->EdgeType() == canvas::EdgeTypePartOf) {
            edges.push_back(number);
        }
    }
    std::reverse(edges.begin(), edges.end());
    return edges;
}

LabelsD* targetOf(ZoomView& view, canvas::EdgeNumber edge) {
    return view.Labels.byIndex(view.Lines.byIndex(edge)->ToLabel());
}

bool isMemberOf(const ZoomView& view, const LabelsD& node, const LabelsD& owner) {
    const RelationEnd end(node);
    return end.present() && end.kind() != KindFree && end.kind() != KindConstant &&
           (end.parentKeyName() == ownerNameOf(view, owner) || isFree(view, end.parentKeyName()));
}

}  // namespace orvent::zoom
