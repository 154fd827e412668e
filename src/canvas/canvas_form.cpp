#include "canvas/canvas_form.h"

#include "canvas/straighten.h"

namespace orvent::canvas {

void CanvasForm::tellForm() {
    listeners().tell([](CanvasListener& listener) { listener.formChanged(); });
}

std::optional<Offer> CanvasForm::offer() const {
    const LinesD* edge = Lines.byIndex(crooked_);
    return edge && isCrooked(*this, *edge)
               ? std::optional(Offer{"The new edge does not run straight from box to box.", "Straighten"})
               : std::nullopt;
}

void CanvasForm::answerOffer(bool taken) {
    if (LinesD* edge = Lines.byIndex(crooked_); edge && taken) {
        straighten(*this, *edge);
    }
    crooked_ = 0;
    tellForm();
}

void CanvasForm::edgeDrawn(const LinesD& edge) {
    if (!straightOffered_ && isCrooked(*this, edge)) {
        straightOffered_ = true;
        crooked_ = edge.Index();
        tellForm();
    }
}

void CanvasForm::forgetEdge(const LinesD& edge) {
    Canvas::forgetEdge(edge);
    if (edge.Index() == crooked_) {
        crooked_ = 0;
        tellForm();
    }
}

void CanvasForm::straightenEdges(LinesD* edge) {
    edge && !edge->Selected() ? straighten(*this, *edge) : straightenSelected(*this);
    tellForm();
}

void CanvasForm::setCaption(const std::string& value) {
    caption_ = value;
    tellForm();
}

void CanvasForm::setEnabled(bool value) {
    if (enabled_ != value) {
        enabled_ = value;
        tellForm();
    }
}

}  // namespace orvent::canvas
