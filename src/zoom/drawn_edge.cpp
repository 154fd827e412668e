#include "zoom/drawn_edge.h"

namespace orvent::zoom {

using canvas::LabelsD;
using canvas::LinesD;

namespace {

bool sameKind(const LinesD& edge, const LinesD& other) {
    return other.ToLabel() == edge.ToLabel() && other.EdgeType() == edge.EdgeType();
}

}  // namespace

bool CheckDuplicateLine(canvas::Canvas& view, canvas::EdgeNumber edge) {
    const LinesD& drawn = *view.Lines.byIndex(edge);
    const LabelsD* from = view.Labels.byIndex(drawn.FromLabel());
    if (!from) {
        return true;
    }
    for (const canvas::EdgeNumber number : from->StartingLines()) {
        const LinesD* other = view.Lines.byIndex(number);
        if (number != edge && other && sameKind(drawn, *other)) {
            view.Lines.RemoveFull(edge);
            view.messages().tell("THIS LINE ALLREADY EXISTS!!", "", platform::Icon::warning);
            return false;
        }
    }
    return true;
}

void RejectRelationship(canvas::Canvas& view, canvas::EdgeNumber edge, const std::string& why) {
    view.Lines.RemoveFull(edge);
    view.messages().showWith(why, "This Relationship Is Not Valid!", "", platform::Icon::warning,
                             platform::Buttons::ok);
}

void FlipLine(canvas::Canvas& view, canvas::EdgeNumber& edge) {
    const std::unique_ptr<LinesD> former = view.Lines.RemoveFull(edge);
    const LinesD* reverse =
        view.Lines.addFullLine(former->ToLabel(), former->ToGrabbingPoint(), former->FromLabel(),
                               former->FromGrabbingPoint(), former->EdgeType(), former->Angle(), former->Color());
    edge = reverse->Index();
}

}  // namespace orvent::zoom
