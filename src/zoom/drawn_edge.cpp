#include "zoom/drawn_edge.h"

namespace orvent::zoom {

using canvas::LabelsD;
using canvas::LinesD;

namespace {

bool sameKind(const LinesD& edge, const LinesD& other) {
    return other.ToLabel() == edge.ToLabel() && other.EdgeType() == edge.EdgeType();
}

}  // namespace

bool CheckDuplicateLine(canvas::Canvas& form, std::int32_t edge) {
    const LinesD& drawn = *form.Lines.byIndex(edge);
    const LabelsD* from = form.Labels.byIndex(drawn.FromLabel());
    if (!from) {
        return true;
    }
    for (const std::int32_t number : from->StartingLines()) {
        const LinesD* other = form.Lines.byIndex(number);
        if (number != edge && other && sameKind(drawn, *other)) {
            form.Lines.RemoveFull(edge);
            form.messages().tell("THIS LINE ALLREADY EXISTS!!", "", platform::Icon::warning);
            return false;
        }
    }
    return true;
}

void RejectRelationship(canvas::Canvas& form, std::int32_t edge) {
    form.Lines.RemoveFull(edge);
    form.messages().tell("This Relationship Is Not Valid!", "", platform::Icon::warning);
}

void FlipLine(canvas::Canvas& form, std::int32_t& edge) {
    const std::unique_ptr<LinesD> former = form.Lines.RemoveFull(edge);
    const LinesD* reverse =
        form.Lines.addFullLine(former->ToLabel(), former->ToGrabbingPoint(), former->FromLabel(),
                               former->FromGrabbingPoint(), former->EdgeType(), former->Angle(), former->Color());
    edge = reverse->Index();
}

}  // namespace orvent::zoom
